#pragma once

#include <cstdint>

namespace kestrin::platform {

/// The hook in front of the window's procedure, from start-up until the window is
/// about to close.
///
/// On Windows it answers the question for the scroll bars' brush (message 0x0137) with
/// none and passes every other message on unchanged. Elsewhere windows are asked no such
/// question, and nothing is hooked.
class ScrollBar {
 public:
  ScrollBar() = default;
  ~ScrollBar() { Unhook(); }
  ScrollBar(const ScrollBar&) = delete;
  ScrollBar& operator=(const ScrollBar&) = delete;

  /// `window` is the window's native handle. One window at a time.
  /// A window that cannot be hooked is left as it is.
  void Hook(std::uintptr_t window);

  /// Puts the previous procedure back; nothing happens when none was replaced.
  void Unhook();

  bool IsHooked() const { return hooked_; }

 private:
  bool hooked_ = false;
};

}  // namespace kestrin::platform
