#include "export/ground/planeGeometry.h"

#include <gtest/gtest.h>

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

TEST(PolygonArea, IsSignedAndDoesNotMindAClosingPoint) {
  const std::vector<geo::UtmPoint> open{{0, 0}, {4, 0}, {4, 3}};
  const std::vector<geo::UtmPoint> closed{{0, 0}, {4, 0}, {4, 3}, {0, 0}};
  const std::vector<geo::UtmPoint> back{{4, 3}, {4, 0}, {0, 0}};
  EXPECT_EQ(PolygonArea(open), 6);
  EXPECT_EQ(PolygonArea(closed), 6);
  EXPECT_EQ(PolygonArea(back), -6);
}

}  // namespace
}  // namespace kestrin::ground
