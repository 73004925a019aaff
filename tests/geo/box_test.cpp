#include "geo/box.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kestrin::geo {
namespace {

TEST(Box, HoldsAndOverlapsNothingWithoutPoints) {
  const Box box;
  EXPECT_TRUE(box.IsEmpty());
  EXPECT_FALSE(box.Holds(0, 0));
  EXPECT_FALSE(box.Overlaps({-1, -1, 1, 1}));
}

TEST(Box, KeepsWhatIsNoNumberFromItsFirstPointOn) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  Box box;
  box.Widen(none, 1);
  box.Widen(2, 2);
  EXPECT_FALSE(box.IsEmpty());
  EXPECT_TRUE(std::isnan(box.xMin));
  EXPECT_TRUE(std::isnan(box.xMax));
  EXPECT_EQ(box.yMax, 2);
  EXPECT_FALSE(box.Holds(2, 2));
}

TEST(Box, FirstPointSetsAllBounds) {
  Box box;
  box.Widen(-5, 7);
  EXPECT_EQ(box.xMin, -5);
  EXPECT_EQ(box.xMax, -5);
  EXPECT_EQ(box.yMin, 7);
  EXPECT_EQ(box.yMax, 7);
}

TEST(Box, LaterPointsWidenOneSideOfEachAxis) {
  Box box;
  box.Widen(1, 1);
  box.Widen(3, -2);
  box.Widen(2, 0);
  EXPECT_EQ(box.xMin, 1);
  EXPECT_EQ(box.xMax, 3);
  EXPECT_EQ(box.yMin, -2);
  EXPECT_EQ(box.yMax, 1);
}

}  // namespace
}  // namespace kestrin::geo
