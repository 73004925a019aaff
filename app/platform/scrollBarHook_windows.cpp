#include "app/platform/scrollBarHook.h"

#ifdef _WIN32

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace kestrin {

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
  return CallWindowProc(TheHooked().previous, window, message, wide, narrow);
}

}  // namespace

void ScrollBar::Hook(std::uintptr_t window) {
  if (hooked_) return;
  Hooked& hooked = TheHooked();
  hooked.window = reinterpret_cast<HWND>(window);
  hooked.previous = reinterpret_cast<WNDPROC>(GetWindowLongPtr(hooked.window, GWLP_WNDPROC));
  SetWindowLongPtr(hooked.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Replacement));
  hooked_ = true;
}

void ScrollBar::Unhook() {
  if (!hooked_) return;
  const Hooked& hooked = TheHooked();
  SetWindowLongPtr(hooked.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(hooked.previous));
  hooked_ = false;
}

}  // namespace kestrin

#endif
