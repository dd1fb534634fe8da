#include "platform/chance.h"

#include <chrono>

namespace platform {

void ClockChance::reseed() {
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  const std::uint64_t carried = generator_();
  std::seed_seq seed{static_cast<std::uint32_t>(now), static_cast<std::uint32_t>(now >> 32),
                     static_cast<std::uint32_t>(carried), static_cast<std::uint32_t>(carried >> 32)};
  generator_.seed(seed);
}

double ClockChance::next() {
  // The upper 53 bits fill a double exactly, so the result can never round up to 1.
  return static_cast<double>(generator_() >> 11) * 0x1p-53;
}

}  // namespace platform
