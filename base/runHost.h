#pragma once

#include <string>

namespace kestrin::base {

/// Thrown by RunHost::Yield when whoever started a run wants it stopped. A run
/// lets it pass: its destructors remove what was half made. It is no std::exception, so
/// that whoever tells of errors lets it pass, too.
struct RunCancelled {};

/// What a long walk over a job asks of whoever started it, and all it knows of
/// them: exports and preview run the same under a window, a terminal or a test.
class RunHost {
 public:
  virtual ~RunHost() = default;

  /// Adds one to the progress count. Called once per GPS row read.
  virtual void CountRow() = 0;

  /// Lets whatever is pending elsewhere run. Called once per GPS row, and between the
  /// pieces of anything else that takes long, so it must cost next to nothing most of
  /// the time. May throw RunCancelled.
  virtual void Yield() = 0;

  /// The same from inside one long step of the database library, such as sorting all
  /// rows before the first one comes. Must neither throw nor use the job.
  virtual void YieldInsideStep() noexcept {}

  /// Tells the user that something failed; returns when they have seen it.
  virtual void ShowMessage(const std::string& text) = 0;
};

}  // namespace kestrin::base
