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

TEST(Box, EqualBoundStaysAsItIsToTheSignOfZero) {
  Box box;
  box.Widen(0, 0);
  box.Widen(-0.0, -0.0);
  for (const double bound : {box.xMin, box.yMin, box.xMax, box.yMax}) {
    EXPECT_FALSE(std::signbit(bound));
  }
}

TEST(Box, OfTwoPointsIsTheSameWhicheverComesFirst) {
  const Box box{1, 2, 5, 7};
  EXPECT_EQ(Box::Of({1, 7}, {5, 2}), box);
  EXPECT_EQ(Box::Of({5, 2}, {1, 7}), box);
  EXPECT_EQ(Box::Of({5, 7}, {1, 2}), box);
}

TEST(Box, WidenedByABoxHoldsBoth) {
  Box box;
  box.Widen(Box{1, 2, 3, 4});
  EXPECT_EQ(box, (Box{1, 2, 3, 4}));
  box.Widen(Box{0, 3, 5, 3.5});
  EXPECT_EQ(box, (Box{0, 2, 5, 4}));
  box.Widen(Box{1, 1, 2, 6});
  EXPECT_EQ(box, (Box{0, 1, 5, 6}));
  box.Widen(Box{});
  EXPECT_EQ(box, (Box{0, 1, 5, 6}));
}

TEST(Box, HoldsContainsAndOverlapsUpToItsBounds) {
  const Box box{0, 0, 4, 2};
  EXPECT_TRUE(box.Contains(box));
  for (const UtmPoint corner : {UtmPoint{0, 0}, UtmPoint{4, 0}, UtmPoint{0, 2}, UtmPoint{4, 2}}) {
    EXPECT_TRUE(box.Holds(corner));
    EXPECT_TRUE(box.Contains(Box::Of(corner, {1, 1})));
    // From the corner outwards.
    EXPECT_TRUE(box.Overlaps(Box::Of(corner, {3 * corner.easting - 4, 3 * corner.northing - 2})));
  }
  // A hair beyond each bound, at the other axis's middle.
  for (const UtmPoint beyond :
       {UtmPoint{-1e-9, 1}, UtmPoint{4 + 1e-9, 1}, UtmPoint{2, -1e-9}, UtmPoint{2, 2 + 1e-9}}) {
    EXPECT_FALSE(box.Holds(beyond));
    EXPECT_FALSE(box.Contains(Box::Of(beyond, {2, 1})));
    EXPECT_FALSE(box.Overlaps(Box::Of(beyond, beyond)));
  }
}

}  // namespace
}  // namespace kestrin::geo
