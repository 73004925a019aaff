#include <windows.h>

#include "app/platform/scrollBarHook.h"

namespace kestrin::platform {
namespace {

constexpr UINT kColourOfScrollBar = 0x0137;

// The replacement procedure has no argument for a context: what it needs stands
// here, for the one window of the program.
struct Hooked {
  HWND window = nullptr;
  WNDPROC previous = nullptr;
};

Hooked& TheHooked() {
  static Hooked hooked;
  return hooked;
}

LRESULT CALLBACK Replacement(HWND window, UINT message, WPARAM wide, LPARAM narrow) {
  if (message == kColourOfScrollBar) return 0;
  return CallWindowProcW(TheHooked().previous, window, message, wide, narrow);
}

/// Replaces the window's procedure and returns the one before, null when the window
/// refuses.
WNDPROC Replace(HWND window, WNDPROC procedure) {
  const LONG_PTR before =
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
  return reinterpret_cast<WNDPROC>(before);
}

}  // namespace

void ScrollBar::Hook(std::uintptr_t window) {
  if (hooked_) return;
  Hooked& hooked = TheHooked();
  hooked.window = reinterpret_cast<HWND>(window);
  // Without a real window (a platform without windows) there is nothing to hook, and
  // the procedure must be known before the first message comes.
  hooked.previous = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hooked.window, GWLP_WNDPROC));
  if (hooked.previous == nullptr) return;
  hooked_ = Replace(hooked.window, &Replacement) != nullptr;
}

void ScrollBar::Unhook() {
  if (!hooked_) return;
  Replace(TheHooked().window, TheHooked().previous);
  hooked_ = false;
}

}  // namespace kestrin::platform
