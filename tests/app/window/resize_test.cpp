#include <gtest/gtest.h>

#include "tests/app/testWindow.h"

namespace kestrin::window {
namespace {

constexpr int kBar = 17;

class ResizeTest : public test::WindowTest {
 protected:
  QWidget& Corner() { return window_.Find<>("Frame3"); }
};

TEST_F(ResizeTest, DesignSizeHasNoBars) {
  EXPECT_FALSE(V().isVisible());
  EXPECT_FALSE(H().isVisible());
  EXPECT_FALSE(Corner().isVisible());
}

TEST_F(ResizeTest, NarrowAndHighShowsOnlyTheVerticalBar) {
  Resize(700, 600);
  EXPECT_TRUE(V().isVisible());
  EXPECT_FALSE(H().isVisible());
  EXPECT_FALSE(Corner().isVisible());
  EXPECT_EQ(V().geometry(), QRect(700 - kBar, 0, kBar, 600));
  EXPECT_EQ(H().maximum(), 792 - 700 + kBar);
  EXPECT_EQ(V().maximum(), std::abs(540 - 600 + kBar));
}

TEST_F(ResizeTest, WideAndLowShowsOnlyTheHorizontalBar) {
  Resize(800, 500);
  EXPECT_FALSE(V().isVisible());
  EXPECT_TRUE(H().isVisible());
  EXPECT_FALSE(Corner().isVisible());
  EXPECT_EQ(H().geometry(), QRect(0, 500 - kBar, 800, kBar));
}

TEST_F(ResizeTest, SmallShowsBothAndTheCorner) {
  Resize(600, 400);
  EXPECT_EQ(V().geometry(), QRect(600 - kBar, 0, kBar, 400 - kBar));
  EXPECT_EQ(H().geometry(), QRect(0, 400 - kBar, 600 - kBar, kBar));
  EXPECT_TRUE(Corner().isVisible());
  EXPECT_EQ(Corner().pos(), QPoint(600 - kBar, 400 - kBar));
  EXPECT_EQ(H().maximum(), 792 - 600 + kBar);
  EXPECT_EQ(V().maximum(), 540 - 400 + kBar);
}

TEST_F(ResizeTest, TheCornerCoversTheContentBelow) {
  Resize(600, 400);
  ASSERT_TRUE(Content().geometry().contains(Corner().geometry()));
  const QColor own = Corner().palette().color(QPalette::Window);
  ASSERT_NE(own, QColor(Qt::white)) << "as the preview below";
  const QImage shown = window_->grab(Corner().geometry()).toImage();
  for (int y = 0; y < shown.height(); ++y) {
    for (int x = 0; x < shown.width(); ++x) ASSERT_EQ(shown.pixelColor(x, y), own) << x << ' ' << y;
  }
}

TEST_F(ResizeTest, ScrollingMovesTheContentAndDrawsNothingAnew) {
  Resize(600, 400);
  H().setValue(100);
  V().setValue(50);
  EXPECT_EQ(Content().pos(), QPoint(-100, -50));
}

TEST_F(ResizeTest, ABarThatGoesGoesBackToItsStart) {
  Resize(600, 400);
  H().setValue(100);
  V().setValue(50);
  Resize(792, 540);
  EXPECT_EQ(H().value(), 0);
  EXPECT_EQ(V().value(), 0);
  EXPECT_EQ(Content().pos(), QPoint(0, 0));
}

TEST_F(ResizeTest, PageStepIsTheDesigned) {
  EXPECT_EQ(V().pageStep(), 800);
  EXPECT_EQ(H().pageStep(), 800);
}

}  // namespace
}  // namespace kestrin::window
