#include "export/coverage/outline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "export/coverage/swath.h"
#include "tests/export/coverage/literalCoverage.h"

namespace kestrin::coverage {
namespace {

using test::LiteralPolygons;
using test::LiteralRow;
using Rows = std::vector<LiteralRow>;

LiteralRow Row(double east, double north, double yaw = 0, double width = 6) {
  return {SwathRow::Of({east, north}, yaw, width), false};
}

/// Indices of the rows at which polygons begin, counted from 1 behind an empty entry.
std::vector<int> StartsOf(const Rows& rows) {
  std::vector<int> starts{0};
  Swath swath;
  int index = 0;
  for (const auto& [row, begins] : rows) {
    const bool first = begins || index == 0;
    if (!first && row.left == swath.leftEdge.back() && row.right == swath.rightEdge.back())
      continue;
    ++index;
    std::size_t count = 0;
    if (!first) {
      const auto startIndex = static_cast<std::size_t>(starts.back());
      const auto endIndex = static_cast<std::size_t>(index);
      swath.Append(row);
      CleanOutline(swath.outline, swath.leftEdge, swath.rightEdge, startIndex, endIndex, count);
      EXPECT_TRUE(count == 0 || count == endIndex) << count;
    }
    if (first || count > 0) {
      starts.push_back(index);
      swath = {};
      swath.Append(row);
    }
  }
  return starts;
}

void ExpectLiteralStarts(const Rows& rows) {
  EXPECT_EQ(StartsOf(rows), LiteralPolygons(rows).starts);
}

TEST(CleanOutline, CutsAtTheRowWhoseWayMeetsTheWayDriven) {
  const Rows rows{Row(0, 0), Row(10, 0), Row(10, 10), Row(5, 10), Row(5, -5), Row(5, -10)};
  EXPECT_EQ(StartsOf(rows), (std::vector<int>{0, 1, 5}));
  ExpectLiteralStarts(rows);
}

TEST(CleanOutline, AsksAllSegmentsButTheOneBeforeTheNewest) {
  // Straight back over the segment just before: not asked then, it is by the next row.
  const Rows back{Row(0, 0), Row(10, 0), Row(5, 0), Row(5, 5)};
  EXPECT_EQ(StartsOf(back), (std::vector<int>{0, 1, 4}));
  ExpectLiteralStarts(back);
  const Rows touching{Row(0, 0), Row(10, 0), Row(10, 5), Row(4, 0)};
  EXPECT_EQ(StartsOf(touching), (std::vector<int>{0, 1, 4}));
  ExpectLiteralStarts(touching);
}

TEST(CleanOutline, BoundsAreIncluded) {
  // The newest segment ends on the first point of the first.
  EXPECT_EQ(StartsOf({Row(0, 0), Row(10, 0), Row(10, 10), Row(0, 0)}), (std::vector<int>{0, 1, 4}));
  // A hair before it, nothing is met.
  EXPECT_EQ(StartsOf({Row(0, 0), Row(10, 0), Row(10, 10), Row(0, 1e-9)}), (std::vector<int>{0, 1}));
}

TEST(CleanOutline, ParallelWaysDoNotMeet) {
  EXPECT_EQ(StartsOf({Row(0, 0), Row(10, 0), Row(10, 0, 1), Row(5, 0, 1), Row(2, 0, 1)}),
            (std::vector<int>{0, 1}));
}

TEST(CleanOutline, TurningOnTheSpotMayCut) {
  // The way on begins where the way there ended, two rows or more before.
  const Rows rows{Row(0, 0), Row(0, 5), Row(0, 5, 0.5), Row(0, 5, 1), Row(5, 7, 1)};
  EXPECT_EQ(StartsOf(rows), (std::vector<int>{0, 1, 5}));
  ExpectLiteralStarts(rows);
}

TEST(CleanOutline, OnlyTheCurrentPolygonCounts) {
  Rows rows{Row(0, 0), Row(10, 0), Row(10, 10), Row(5, 10), Row(5, -5)};
  rows[3].begins = true;
  EXPECT_EQ(StartsOf(rows), (std::vector<int>{0, 1, 4}));
  ExpectLiteralStarts(rows);
}

TEST(CleanOutline, CountIsTheEndIndexOfAHitAndElseNone) {
  Swath swath;
  for (const LiteralRow& next : {Row(0, 0), Row(10, 0), Row(10, 10)}) swath.Append(next.row);
  // The third row of a polygon that began at the job's seventh.
  std::size_t count = 99;
  CleanOutline(swath.outline, swath.leftEdge, swath.rightEdge, 7, 9, count);
  EXPECT_EQ(count, 0U);
  swath.Append(Row(5, -5).row);
  CleanOutline(swath.outline, swath.leftEdge, swath.rightEdge, 7, 10, count);
  EXPECT_EQ(count, 10U);
  // Less the row of the hit.
  EXPECT_EQ(swath.outline.Size(), 3U);
  EXPECT_EQ(swath.leftEdge.size(), 3U);
  EXPECT_EQ(swath.rightEdge.size(), 3U);
}

TEST(SwathRow, EndsLieHalfAWidthToEitherSideOfTheHeading) {
  const double yaw = 0.7;
  const SwathRow row = SwathRow::Of({5e5, 5e6}, yaw, 9);
  EXPECT_EQ(row.right, (geo::UtmPoint{5e5 + std::cos(yaw) * 4.5, 5e6 - std::sin(yaw) * 4.5}));
  EXPECT_EQ(row.left, (geo::UtmPoint{5e5 - std::cos(yaw) * 4.5, 5e6 + std::sin(yaw) * 4.5}));
}

/// Random ways of several characters: smooth, jittering, on a coarse lattice (where
/// touching, overlapping and repeated segments abound), with jumps of every size.
class RandomWays : public testing::TestWithParam<int> {};

Rows RandomWay(unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> unit(-1, 1);
  const unsigned character = seed % 6;
  const int count = 20 + static_cast<int>(random() % 400);
  const double origin = seed % 2 == 0 ? 0 : 5e5;
  double east = origin;
  double north = 9 * origin;
  double yaw = unit(random);
  const double turn = 0.02 + 0.3 * std::fabs(unit(random));
  Rows rows;
  for (int i = 0; i < count; ++i) {
    double step = 1;
    if (character == 0) yaw += turn * unit(random);
    if (character == 1) yaw += 0.01 + 0.02 * unit(random);
    if (character == 2) {
      east += unit(random);
      north += unit(random);
      step = 0;
    }
    if (character == 3) {
      east += static_cast<double>(random() % 3) - 1;
      north += static_cast<double>(random() % 3) - 1;
      step = 0;
    }
    if (character == 4) {
      yaw += 0.1 * unit(random);
      step = std::exp(8 * unit(random));
    }
    if (character == 5) {
      yaw += 0.1 * unit(random);
      step = random() % 40 == 0 ? 1e5 : 0.01;
    }
    east += step * std::sin(yaw);
    north += step * std::cos(yaw);
    LiteralRow row = Row(east, north, yaw, 4);
    row.begins = random() % 200 == 0;
    rows.push_back(row);
  }
  return rows;
}

TEST_P(RandomWays, AreCutWhereComparingEveryPairCutsThem) {
  for (unsigned seed = 0; seed < 500; ++seed) {
    const Rows rows = RandomWay(seed + 500 * static_cast<unsigned>(GetParam()));
    ASSERT_EQ(StartsOf(rows), LiteralPolygons(rows).starts) << "seed " << seed;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWays, testing::Range(0, 8));

TEST(CleanOutline, LongWaysAreCutWhereComparingEveryPairCutsThem) {
  // Outward spirals whose arms come closer and closer, and end across all of them.
  for (const double spacing : {0.3, 3.0, 30.0}) {
    Rows rows;
    for (double angle = 1; angle < 60; angle += 0.02) {
      const double radius = spacing * angle;
      rows.push_back(Row(5e5 + radius * std::cos(angle), 4e6 + radius * std::sin(angle), angle));
    }
    rows.push_back(Row(5e5, 4e6));
    EXPECT_EQ(StartsOf(rows).size(), 3u);
    ExpectLiteralStarts(rows);
  }
}

TEST(CleanOutline, OddCoordinatesAreAnsweredLikeAllOthers) {
  const double odd[] = {std::numeric_limits<double>::quiet_NaN(),
                        std::numeric_limits<double>::infinity(),
                        -std::numeric_limits<double>::infinity(),
                        1e300,
                        -1e300,
                        1.7e308,
                        1e38,
                        5e-324,
                        0,
                        1e18};
  std::mt19937 random(7);
  for (int run = 0; run < 2000; ++run) {
    Rows rows;
    for (int i = 0; i < 120; ++i) {
      LiteralRow row = Row(static_cast<double>(random() % 50), static_cast<double>(i) * 0.3);
      if (random() % 4 == 0) row.row.centre.easting = odd[random() % std::size(odd)];
      if (random() % 4 == 0) row.row.centre.northing = odd[random() % std::size(odd)];
      row.row.left.easting = i;
      rows.push_back(row);
    }
    ASSERT_EQ(StartsOf(rows), LiteralPolygons(rows).starts) << "run " << run;
  }
}

}  // namespace
}  // namespace kestrin::coverage
