#include <gtest/gtest.h>
#include <windows.h>

#include <vector>

#include "app/platform/scrollBarHook.h"

namespace kestrin::platform {
namespace {

constexpr UINT kColourOfScrollBar = 0x0137;
constexpr UINT kAnother = WM_USER + 7;
constexpr LRESULT kAnswer = 4711;

struct Message {
  UINT number;
  WPARAM wide;
  LPARAM narrow;
  friend bool operator==(const Message&, const Message&) = default;
};

std::vector<Message>& Received() {
  static std::vector<Message> received;
  return received;
}

LRESULT CALLBACK Procedure(HWND window, UINT number, WPARAM wide, LPARAM narrow) {
  if (number != kColourOfScrollBar && number != kAnother) {
    return DefWindowProcW(window, number, wide, narrow);
  }
  Received().push_back({number, wide, narrow});
  return kAnswer;
}

/// A window of the system's own, with a procedure that keeps what it is asked.
class HookedWindow : public testing::Test {
 protected:
  HookedWindow() {
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.lpszClassName = L"KestrinHookTest";
    RegisterClassW(&type);
    window_ = CreateWindowW(type.lpszClassName, L"", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr,
                            nullptr, type.hInstance, nullptr);
    Received().clear();
  }
  ~HookedWindow() override { DestroyWindow(window_); }

  void SetUp() override {
    if (window_ == nullptr) GTEST_SKIP() << "no desktop here";
  }

  std::uintptr_t Handle() const { return reinterpret_cast<std::uintptr_t>(window_); }
  LRESULT Ask(UINT number) { return SendMessageW(window_, number, 1, 2); }

  HWND window_ = nullptr;
};

TEST_F(HookedWindow, AnswersTheScrollBarsColourWithNoneAndDoesNotPassItOn) {
  EXPECT_EQ(Ask(kColourOfScrollBar), kAnswer);
  Received().clear();
  ScrollBar hook;
  hook.Hook(Handle());
  EXPECT_TRUE(hook.IsHooked());
  EXPECT_EQ(Ask(kColourOfScrollBar), 0);
  EXPECT_TRUE(Received().empty());
}

TEST_F(HookedWindow, PassesEverythingElseOnUnchanged) {
  ScrollBar hook;
  hook.Hook(Handle());
  EXPECT_EQ(Ask(kAnother), kAnswer);
  EXPECT_EQ(Received(), (std::vector<Message>{{kAnother, 1, 2}}));
}

TEST_F(HookedWindow, HasItsOwnProcedureBackAfterwards) {
  ScrollBar hook;
  const LONG_PTR before = GetWindowLongPtrW(window_, GWLP_WNDPROC);
  hook.Hook(Handle());
  EXPECT_NE(GetWindowLongPtrW(window_, GWLP_WNDPROC), before);
  hook.Unhook();
  EXPECT_FALSE(hook.IsHooked());
  EXPECT_EQ(GetWindowLongPtrW(window_, GWLP_WNDPROC), before);
  EXPECT_EQ(Ask(kColourOfScrollBar), kAnswer);
}

TEST(ScrollBarHook, OfNoWindowIsNotHooked) {
  ScrollBar hook;
  hook.Hook(1);
  EXPECT_FALSE(hook.IsHooked());
}

}  // namespace
}  // namespace kestrin::platform
