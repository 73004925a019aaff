#include "export/ground/convexHull.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

TEST(ConvexHull, RunsClockwiseFromTheWesternmostPointWithoutNeedlessCorners) {
  const Line points{{2, 0}, {0, 0}, {1, 1}, {2, 2}, {0, 2}, {1, 0}, {0, 1}, {2, 0}};
  EXPECT_EQ(ConvexHullOf(points), (Line{{0, 0}, {0, 2}, {2, 2}, {2, 0}, {0, 0}}));
}

TEST(ConvexHull, OfPointsOnOneLineIsNone) {
  EXPECT_TRUE(ConvexHullOf({}).empty());
  EXPECT_TRUE(ConvexHullOf({{1, 1}}).empty());
  EXPECT_TRUE(ConvexHullOf({{1, 1}, {1, 1}, {3, 3}, {2, 2}}).empty());
  EXPECT_TRUE(ConvexHullOf({{1, 1}, {1, 5}, {1, 3}}).empty());
}

TEST(ConvexHull, LeavesNoPointOutside) {
  std::mt19937 random(3);
  for (int run = 0; run < 200; ++run) {
    Line points;
    for (int i = 0; i < 30; ++i) {
      points.push_back({5e5 + static_cast<double>(random() % 40) / 8,
                        5e6 + static_cast<double>(random() % 40) / 8});
    }
    const Line hull = ConvexHullOf(points);
    ASSERT_GE(hull.size(), 4U);
    for (std::size_t i = 0; i + 1 < hull.size(); ++i) {
      EXPECT_TRUE(std::ranges::none_of(points, [&](const geo::UtmPoint& point) {
        return SideOf(hull[i], hull[i + 1], point) > 0;
      }));
      if (i == 0) continue;
      EXPECT_LT(SideOf(hull[i - 1], hull[i], hull[i + 1]), 0);
    }
  }
}

}  // namespace
}  // namespace kestrin::ground
