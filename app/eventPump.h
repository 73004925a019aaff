#pragma once

#include <chrono>

namespace kestrin {

/// Lets the window live while a procedure runs on its thread. Asked for once per
/// row, it answers at once unless a few milliseconds have passed since pending
/// events last ran.
class EventPump {
 public:
  using Clock = std::chrono::steady_clock;

  /// Runs pending events when the last time was long enough ago.
  void Yield() {
    if (Clock::now() - last_ >= kInterval) Run();
  }

  /// Runs pending events now.
  void Run();

  /// Longest time between two runs of events since the last Restart.
  Clock::duration LongestGap() const { return longestGap_; }

  /// To be called when a procedure begins.
  void Restart();

 private:
  static constexpr std::chrono::milliseconds kInterval{8};

  Clock::time_point last_ = Clock::now();
  Clock::duration longestGap_{};
};

}  // namespace kestrin
