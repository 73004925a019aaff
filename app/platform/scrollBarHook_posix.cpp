#include "app/platform/scrollBarHook.h"

namespace kestrin::platform {

// The question does not exist here, so there is nothing to answer.
void ScrollBar::Hook(std::uintptr_t) {}
void ScrollBar::Unhook() {}

}  // namespace kestrin::platform
