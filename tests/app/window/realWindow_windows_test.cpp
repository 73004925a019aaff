#include <gtest/gtest.h>
#include <windows.h>
#undef Yield

#include <QGuiApplication>

#include "tests/app/testWindow.h"

/// The program's window as Windows has it; needs "-platform windows".

namespace kestrin::window {
namespace {

using test::TestWindow;

constexpr UINT kColourOfScrollBar = 0x0137;

class RealWindow : public testing::Test {
 protected:
  void SetUp() override {
    if (QGuiApplication::platformName() != "windows") GTEST_SKIP() << "no windows here";
  }
  static HWND HandleOf(TestWindow& window) { return reinterpret_cast<HWND>(window->winId()); }
};

TEST_F(RealWindow, IsHookedUntilItCloses) {
  TestWindow window;
  const HWND handle = HandleOf(window);
  const LONG_PTR hooked = GetWindowLongPtrW(handle, GWLP_WNDPROC);
  EXPECT_EQ(SendMessageW(handle, kColourOfScrollBar, 0, 0), 0);
  window->close();
  EXPECT_NE(GetWindowLongPtrW(handle, GWLP_WNDPROC), hooked);
}

TEST_F(RealWindow, GetsItsOtherMessagesThroughTheHook) {
  TestWindow window;
  wchar_t title[20]{};
  SendMessageW(HandleOf(window), WM_GETTEXT, 20, reinterpret_cast<LPARAM>(title));
  EXPECT_STREQ(title, L"Kestrin");
  SetWindowPos(HandleOf(window), nullptr, 0, 0, 640, 480, SWP_NOMOVE | SWP_NOZORDER);
  QTest::qWait(100);
  EXPECT_TRUE(window.Find<>("VScroll1").isVisible());
}

TEST_F(RealWindow, LeavesTheJobToOthersOnceItIsShown) {
  TestWindow window;
  const std::string job = test::SmallJob(window.folder, "Süd 北.sqlite");
  window.Select(job);
  EXPECT_EQ(window->State().preview.jobPath, job);
  const std::wstring path = QString::fromStdString(job).toStdWString();
  const HANDLE alone = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr,
                                   OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(alone, INVALID_HANDLE_VALUE);
  CloseHandle(alone);
}

}  // namespace
}  // namespace kestrin::window
