#pragma once

#include <cstdint>

namespace kestrin::platform {

/// The hook in the window's procedure that decides how the window's scroll bars
/// are painted, from start-up until the window is about to close.
///
/// On Windows it takes the window's place in front of its procedure and answers
/// the question for the scroll bars' brush (message 0x0137) with none; every other
/// message goes on unchanged. Elsewhere there is no such question: the hook is a
/// filter in front of the window's native events that lets all of them pass, so
/// that the scroll bars keep the desktop's own colours.
class ScrollBar {
 public:
  ScrollBar() = default;
  ~ScrollBar() { Unhook(); }
  ScrollBar(const ScrollBar&) = delete;
  ScrollBar& operator=(const ScrollBar&) = delete;

  /// `window` is the window's native handle. One window at a time.
  void Hook(std::uintptr_t window);

  /// Puts the previous procedure back; nothing happens when none was replaced.
  void Unhook();

  bool IsHooked() const { return hooked_; }

 private:
  bool hooked_ = false;
};

}  // namespace kestrin::platform
