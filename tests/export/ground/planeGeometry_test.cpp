#include "export/ground/planeGeometry.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace kestrin::ground {
namespace {

TEST(FindLineIntersection, IsThatOfTheInfiniteLines) {
  double x = 0;
  double y = 0;
  FindLineIntersection(0, 0, 1, 1, 10, 0, 10, 1, x, y);
  EXPECT_EQ(x, 10);
  EXPECT_EQ(y, 10);
  FindLineIntersection(0, 0, 1, 1, 5, 0, 6, 1, x, y);
  EXPECT_EQ(x, 1E+38);
  EXPECT_EQ(y, 1E+38);
}

TEST(SideOf, IsOneToTheLeftAndMinusOneToTheRightAlsoBelowTheRoundingOfProducts) {
  EXPECT_EQ(SideOf({0, 0}, {0, 5}, {-1, 2}), 1);
  EXPECT_EQ(SideOf({0, 0}, {0, 5}, {1, 2}), -1);
  EXPECT_EQ(SideOf({0, 0}, {0, 5}, {0, 7}), 0);
  constexpr double kHair = std::numeric_limits<double>::epsilon();
  EXPECT_EQ(SideOf({0, 0}, {1 + kHair, 1}, {1, 1 - kHair}), -1);
  EXPECT_EQ(SideOf({0, 0}, {1, 1 + kHair}, {1 - kHair, 1}), 1);
}

TEST(SegmentsCross, OnlyWhereEachCrossesTheOtherInside) {
  const auto cross = [](geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d) {
    EXPECT_EQ(SegmentsCross(a, b, c, d), SegmentsCross(c, d, a, b));
    return SegmentsCross(a, b, c, d);
  };
  EXPECT_TRUE(cross({0, 0}, {2, 2}, {0, 2}, {2, 0}));
  // The line of one crosses the other, beyond its own end.
  EXPECT_FALSE(cross({0, 0}, {1, 0}, {5, -1}, {5, 1}));
  // An end lies on the other, or on an end of it.
  EXPECT_FALSE(cross({0, 0}, {2, 0}, {1, 0}, {1, 2}));
  EXPECT_FALSE(cross({0, 0}, {2, 0}, {2, 0}, {3, 5}));
}

TEST(PolygonArea, IsSignedAndDoesNotMindAClosingPoint) {
  const std::vector<geo::UtmPoint> open{{0, 0}, {4, 0}, {4, 3}};
  const std::vector<geo::UtmPoint> closed{{0, 0}, {4, 0}, {4, 3}, {0, 0}};
  const std::vector<geo::UtmPoint> back{{4, 3}, {4, 0}, {0, 0}};
  EXPECT_EQ(PolygonArea(open), 6);
  EXPECT_EQ(PolygonArea(closed), 6);
  EXPECT_EQ(PolygonArea(back), -6);
}

TEST(SignedArea, IsThatOfThePolygonHoweverFarFromTheOrigin) {
  const std::vector<geo::UtmPoint> open{{0, 0}, {4, 0}, {4, 3}, {0, 3}};
  EXPECT_EQ(SignedArea(open), 12);
  std::vector<geo::UtmPoint> closed = open;
  closed.push_back(open.front());
  EXPECT_EQ(SignedArea(closed), 12);
  constexpr double kWide = 0x1p-20;
  const geo::UtmPoint far{500000, 9000000};
  std::vector<geo::UtmPoint> thin{far, far, far, far};
  thin[1].northing = thin[2].northing += 1;
  thin[2].easting = thin[3].easting += kWide;
  EXPECT_EQ(SignedArea(thin), -kWide);
}

}  // namespace
}  // namespace kestrin::ground
