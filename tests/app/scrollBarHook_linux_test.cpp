#include "app/platform/scrollBarHook.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTest>

namespace kestrin {
namespace {

TEST(ScrollBarHook, LetsAWindowsEventsPassWhileItIsThereAndAfterwards) {
  QScrollBar bar(Qt::Horizontal);
  bar.resize(200, 20);
  bar.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));
  ScrollBar hook;
  EXPECT_FALSE(hook.IsHooked());
  hook.Hook(static_cast<std::uintptr_t>(bar.winId()));
  EXPECT_TRUE(hook.IsHooked());
  QTest::keyClick(&bar, Qt::Key_End);
  EXPECT_EQ(bar.value(), bar.maximum());
  hook.Unhook();
  EXPECT_FALSE(hook.IsHooked());
  QTest::keyClick(&bar, Qt::Key_Home);
  EXPECT_EQ(bar.value(), bar.minimum());
}

TEST(ScrollBarHook, IsTakenOffOnceHoweverOftenItIsAsked) {
  QWidget window;
  ScrollBar hook;
  hook.Unhook();
  hook.Hook(static_cast<std::uintptr_t>(window.winId()));
  hook.Hook(static_cast<std::uintptr_t>(window.winId()));
  hook.Unhook();
  hook.Unhook();
  EXPECT_FALSE(hook.IsHooked());
}

}  // namespace
}  // namespace kestrin
