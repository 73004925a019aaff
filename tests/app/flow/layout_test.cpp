#include "app/flow/layout.h"

#include <gtest/gtest.h>

namespace kestrin::flow {
namespace {

/// A window with bars of 17 pixels.
LayoutInput Window(double width, double height) {
  return {.clientWidth = width,
          .clientHeight = height,
          .verticalBarWidth = 17,
          .horizontalBarHeight = 17};
}

TEST(Layout, ADesignSizedWindowHasNoBars) {
  const Layout layout = LayOut(Window(792, 540));
  EXPECT_FALSE(layout.vertical.visible);
  EXPECT_FALSE(layout.horizontal.visible);
  EXPECT_FALSE(layout.corner);
  EXPECT_FALSE(layout.vertical.offset || layout.vertical.length);
  EXPECT_FALSE(layout.horizontal.offset || layout.horizontal.length);
}

TEST(Layout, TheVerticalBarAnswersToTheWidth) {
  const Layout layout = LayOut(Window(700, 600));
  EXPECT_TRUE(layout.vertical.visible);
  EXPECT_FALSE(layout.horizontal.visible);
  EXPECT_EQ(layout.vertical.offset, 700 - 17);
  EXPECT_EQ(layout.vertical.length, 600);
  EXPECT_FALSE(layout.corner);
}

TEST(Layout, TheHorizontalBarAnswersToTheHeight) {
  const Layout layout = LayOut(Window(800, 500));
  EXPECT_FALSE(layout.vertical.visible);
  EXPECT_TRUE(layout.horizontal.visible);
  EXPECT_EQ(layout.horizontal.offset, 500 - 17);
  EXPECT_EQ(layout.horizontal.length, 800);
  EXPECT_FALSE(layout.corner);
}

TEST(Layout, TwoBarsShareTheCorner) {
  LayoutInput window = Window(700, 500);
  window.horizontalBarHeight = 20;
  const Layout layout = LayOut(window);
  EXPECT_EQ(layout.vertical.offset, 683);
  EXPECT_EQ(layout.vertical.length, 480);
  EXPECT_EQ(layout.horizontal.offset, 480);
  EXPECT_EQ(layout.horizontal.length, 683);
  ASSERT_TRUE(layout.corner);
  EXPECT_EQ(layout.corner->left, 683);
  EXPECT_EQ(layout.corner->top, 480);
}

TEST(Layout, APixelBelowTheDesignSizeBringsABar) {
  EXPECT_TRUE(LayOut(Window(791, 540)).vertical.visible);
  EXPECT_TRUE(LayOut(Window(792, 539)).horizontal.visible);
}

TEST(Layout, MaximaAreSetInEveryCase) {
  EXPECT_EQ(LayOut(Window(700, 600)).horizontal.maximum, 792 - 700 + 17);
  EXPECT_EQ(LayOut(Window(700, 600)).vertical.maximum, 43);      // |540 - 600 + 17|
  EXPECT_EQ(LayOut(Window(1000, 800)).horizontal.maximum, 191);  // |792 - 1000 + 17|
  EXPECT_EQ(LayOut(Window(1000, 800)).vertical.maximum, 243);    // |540 - 800 + 17|
}

TEST(Layout, MaximaAreRoundedTo16BitsHalvesToEven) {
  EXPECT_EQ(LayOut(Window(700.5, 500)).horizontal.maximum, 108);  // 108.5
  EXPECT_EQ(LayOut(Window(699.5, 500)).horizontal.maximum, 110);  // 109.5
  EXPECT_EQ(LayOut(Window(90000, 500)).horizontal.maximum, 32767);
}

TEST(Screen, IsMeasuredInPixels) {
  const ScreenSize screen = MeasureScreen(15360, 11520, 15, 15);
  EXPECT_EQ(screen.width, 1024.0F);
  EXPECT_EQ(screen.height, 768);
}

TEST(Screen, KeepsTheWidthsFractionAndRoundsTheHeight) {
  const ScreenSize screen = MeasureScreen(1001, 1007, 2, 2);
  EXPECT_EQ(screen.width, 500.5F);
  EXPECT_EQ(screen.height, 504);  // 503.5
  EXPECT_EQ(MeasureScreen(1001, 1005, 2, 2).height, 502);
}

TEST(Screen, AWindowKeepsItsSizeOnAScreenLargeEnough) {
  EXPECT_FALSE(TakesWholeScreen({1024, 768}));
  EXPECT_FALSE(TakesWholeScreen({800, 600}));
}

TEST(Screen, AWindowTakesAllOfASmallScreen) {
  EXPECT_TRUE(TakesWholeScreen({799.5F, 768}));
  EXPECT_TRUE(TakesWholeScreen({1024, 599}));
  EXPECT_TRUE(TakesWholeScreen({640, 480}));
}

}  // namespace
}  // namespace kestrin::flow
