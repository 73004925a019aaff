#pragma once

#include <chrono>

#include "app/flow/ports.h"

namespace kestrin::window {

/// The window's event loop as its running procedure sees it.
///
/// Once Cancel was called, the procedure's next DoEvents or Yield throws
/// RunCancelled. Neither ever throws, nor runs further events, from inside an event
/// that it is itself running: an exception must not cross the event loop.
class WindowEvents final : public flow::Events {
 public:
  using Clock = std::chrono::steady_clock;

  void DoEvents() override;
  void Yield() override {
    if (Clock::now() - last_ >= kInterval) DoEvents();
  }

  void YieldWithoutThrow() noexcept override {
    if (Clock::now() - last_ >= kInterval) Pump();
  }

  /// To be called when a procedure begins.
  void Begin();

  /// Stops the procedure that runs.
  void Cancel() { cancelled_ = true; }
  /// Whether it was to stop, until the next one begins.
  bool IsCancelled() const { return cancelled_; }

  /// Longest time since Begin in which no events ran.
  Clock::duration LongestGap() const { return longestGap_; }

 private:
  void Pump();

  /// Half a frame: input is answered at once, a million calls cost next to nothing.
  static constexpr std::chrono::milliseconds kInterval{8};

  Clock::time_point last_ = Clock::now();
  Clock::duration longestGap_{};
  bool running_ = false;
  bool cancelled_ = false;
};

}  // namespace kestrin::window
