// The luck of the dice.
#pragma once

#include <cstdint>
#include <random>

namespace platform {

class Chance {
 public:
  virtual ~Chance() = default;

  /// Starts a new sequence from the time of day.
  virtual void reseed() = 0;

  /// The next uniform number, at least 0 and less than 1.
  virtual double next() = 0;
};

/// Seeds from the clock, and from the sequence it leaves, so that two throws in the same instant of a coarse
/// clock still differ.
class ClockChance final : public Chance {
 public:
  void reseed() override;
  double next() override;

 private:
  std::mt19937_64 generator_;
};

}  // namespace platform
