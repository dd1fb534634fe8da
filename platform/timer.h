// A timer of a screen: ticks every `interval` milliseconds while it is enabled.
#pragma once

#include <chrono>
#include <functional>

namespace platform {

/// A point on the desktop's own clock.
using Moment = std::chrono::microseconds;

/// Counts from the moment it is enabled or its interval is set, whichever came last; both take effect when
/// the handler that asked for them has returned. Starts disabled. A tick that comes late is made up for by a
/// shorter wait for the next one, but ticks that were missed altogether are not repeated.
class Timer {
 public:
  /// `interval` in milliseconds, at least 1.
  explicit Timer(int interval) : interval_(interval) {}

  std::function<void()> onTick;

  /// Does nothing to a timer that is already counting.
  void enable() {
    restart_ = restart_ || !enabled_;
    enabled_ = true;
  }

  void disable() { enabled_ = false; }

  bool enabled() const { return enabled_; }

  /// Sets the interval, in milliseconds (at least 1), and counts anew.
  void setInterval(int interval) {
    interval_ = interval;
    restart_ = true;
  }

 private:
  friend class Desktop;

  int interval_;
  bool enabled_ = false;
  bool restart_ = false;  // Enabled or set since the desktop last looked.
  Moment due_{};          // The next tick, while enabled.
};

}  // namespace platform
