#include "export/coverage/edge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "export/coverage/outline.h"
#include "export/coverage/polygonBuilder.h"
#include "tests/export/coverage/literalCoverage.h"
#include "tests/export/coverage/sharpTurns.h"

namespace kestrin::coverage {
namespace {

using testing::Contains;
using testing::Not;

constexpr double kRight = std::numbers::pi / 2;
constexpr double kWidth = 12;

MATCHER_P2(IsNear, east, north, "") {
  return std::fabs(arg.easting - east) < 1e-6 && std::fabs(arg.northing - north) < 1e-6;
}

/// North from the origin; by default with rows where no corner is.
test::Driver North(double step = 0.93) { return {{0, 0}, 0, kWidth, step}; }

/// The edges of a way without its last row's clean-up at the polygon's end.
Swath EdgesOf(const test::Driver& driver) {
  Swath swath;
  swath.Begin(driver.Rows().front());
  for (std::size_t i = 1; i < driver.Rows().size(); ++i) {
    swath.Append(driver.Rows()[i]);
    std::size_t count = 1;
    CleanOutline(swath.outline, swath.leftEdge, swath.rightEdge, 1, i + 1, count);
    EXPECT_EQ(count, 0U);
  }
  return swath;
}

std::vector<std::vector<geo::UtmPoint>> RingsOf(const std::vector<SwathRow>& rows) {
  std::vector<std::vector<geo::UtmPoint>> rings;
  PolygonBuilder builder([&](const Ring& ring) { rings.push_back(ring.Points()); });
  for (const SwathRow& row : rows) builder.Add(row, false);
  builder.Finish();
  return rings;
}

std::vector<std::vector<geo::UtmPoint>> LiteralRingsOf(const std::vector<SwathRow>& rows) {
  std::vector<test::LiteralRow> literal;
  for (const SwathRow& row : rows) literal.push_back({row, false});
  return test::LiteralPolygons(literal).Rings();
}

/// One ring that would cross itself and does not.
void ExpectUntangled(const test::Driver& driver) {
  ASSERT_EQ(LiteralRingsOf(driver.Rows()).size(), 1U);
  EXPECT_TRUE(test::RingCrossesItself(LiteralRingsOf(driver.Rows())[0]));
  ASSERT_EQ(RingsOf(driver.Rows()).size(), 1U);
  EXPECT_FALSE(test::RingCrossesItself(RingsOf(driver.Rows())[0]));
}

TEST(Edge, FoldOfATurnIsCutOffAtTheCrossing) {
  const test::Driver driver = North().Straight(24).Turn(kRight, 2).Straight(24);
  const Swath swath = EdgesOf(driver);
  // The inner end goes up 6 m east of the first leg, and on 6 m south of the second.
  EXPECT_THAT(swath.rightEdge.Points(), Contains(IsNear(6, 20)));
  for (const geo::UtmPoint& point : swath.rightEdge.Points()) {
    EXPECT_GT(point.easting, 6 - 1e-6);
    EXPECT_LT(point.northing, 20 + 1e-6);
  }
  ExpectUntangled(driver);
}

TEST(Edge, OuterEdgeOfATurnKeepsEveryPoint) {
  const test::Driver driver = North().Straight(24).Turn(kRight, 2).Straight(24);
  const auto outer = EdgesOf(driver).leftEdge.Points();
  ASSERT_EQ(outer.size(), driver.Rows().size());
  for (std::size_t i = 0; i < outer.size(); ++i) EXPECT_EQ(outer[i], driver.Rows()[i].left);
}

TEST(Edge, LeftTurnsLoseTheFoldOfTheLeftEdge) {
  const test::Driver driver = North().Straight(24).Turn(-kRight, 2).Straight(24);
  const Swath swath = EdgesOf(driver);
  EXPECT_THAT(swath.leftEdge.Points(), Contains(IsNear(-6, 20)));
  EXPECT_EQ(swath.rightEdge.Points().size(), driver.Rows().size());
  ExpectUntangled(driver);
}

TEST(Edge, BothCornersOfATurnBackLoseTheirFolds) {
  const test::Driver driver =
      North().Straight(24).Turn(kRight, 1).Straight(13).Turn(kRight, 1).Straight(24);
  const auto inner = EdgesOf(driver).rightEdge.Points();
  EXPECT_THAT(inner, Contains(IsNear(6, 19)));
  EXPECT_THAT(inner, Contains(IsNear(9, 19)));
  ExpectUntangled(driver);
}

TEST(Edge, FoldAroundTheBeginningIsCutOffAtTheFirstBoom) {
  // A turn on the spot after 3 m: the inner end leaves behind the first boom.
  const test::Driver driver = North(1).Straight(3).Turn(kRight, 0).Straight(40);
  const auto inner = EdgesOf(driver).rightEdge.Points();
  // From (6, 3) to (1, -3) it passes the boom in the middle.
  EXPECT_THAT(inner.front(), IsNear(3.5, 0));
  EXPECT_THAT(inner[1], IsNear(1, -3));
  ExpectUntangled(driver);
}

TEST(Edge, LoopAboutTheBeginningIsCutOffAtTheFirstBoomThoughItRunsTheOtherWay) {
  // Half a circle after 2 m: the inner end passes behind the first boom and comes up
  // across it 8 m to the left of where it began. What lies between is less than half of
  // the implement's square: that is a vehicle turned about, not a round.
  const test::Driver driver = North(1).Straight(2).Turn(2 * kRight, 2).Straight(18);
  const auto inner = EdgesOf(driver).rightEdge.Points();
  EXPECT_THAT(inner.front(), IsNear(-2, 0));
  for (const geo::UtmPoint& point : inner) {
    EXPECT_NEAR(point.easting, -2, 1e-6);
    EXPECT_LT(point.northing, 1e-6);
  }
  ExpectUntangled(driver);
}

TEST(Edge, FoldClosedBackingUpIsKnownByRunningTheOtherWayRound) {
  // In to the right, back out to the left and on: the left end crosses the first leg's
  // edge backwards, from the outside. Such a loop runs with the vehicle's turn, as a round
  // driven forward does, and yet is a fold.
  const test::Driver driver =
      North(1).Straight(24).Turn(kRight, 1).TurnBack(-1.5 * kRight, 2).Straight(24);
  const auto edge = EdgesOf(driver).leftEdge.Points();
  // From (1, 23) - 4 * sqrt(2) the last leg goes north-west, over the edge of the first.
  EXPECT_THAT(edge, Contains(IsNear(-6, 30 - 8 * std::numbers::sqrt2)));
  for (const geo::UtmPoint& point : edge) EXPECT_LT(point.easting, -6 + 1e-6);
  ExpectUntangled(driver);
}

TEST(Edge, FoldOpenedBackingUpIsKnownByRunningTheOtherWayRound) {
  // Back round to the right, then out to the left and on: here it is the earlier of the
  // two segments that cross which was drawn backwards.
  const test::Driver driver =
      North(1).Straight(24).TurnBack(1.5 * kRight, 2).Turn(-kRight, 1).Straight(24);
  const auto edge = EdgesOf(driver).rightEdge.Points();
  // From (-2, 24) + (3, -4) * sqrt(2) the last leg goes north-east, over that of the first.
  EXPECT_THAT(edge, Contains(IsNear(6, 32 - 7 * std::numbers::sqrt2)));
  for (const geo::UtmPoint& point : edge) EXPECT_GT(point.easting, 6 - 1e-6);
  ExpectUntangled(driver);
}

TEST(Edge, FoldAtTheEndIsCutOffAtTheLastBoom) {
  const test::Driver driver = North(1).Straight(40).Turn(kRight, 0).Straight(3);
  // The last boom stands 3 m to the right of the first leg, across its inner edge's
  // way from (6, 40) to (1, 34).
  ExpectUntangled(driver);
  EXPECT_THAT(RingsOf(driver.Rows())[0], Contains(IsNear(3, 36.4)));
  EXPECT_THAT(RingsOf(driver.Rows())[0], Not(Contains(IsNear(1, 34))));
}

TEST(Edge, RoundThatComesBackToItsOwnEdgeKeepsEveryPoint) {
  // A circle that goes on a little inside its own beginning: the outer edge crosses
  // the first boom, but what it closes lies around ground that is not covered.
  const test::Driver driver =
      North().Turn(3.6 * kRight, 26).Turn(0.5 * kRight, 18).Turn(0.2 * kRight, 26);
  const Swath swath = EdgesOf(driver);
  EXPECT_EQ(swath.rightEdge.Points().size(), driver.Rows().size());
  EXPECT_EQ(swath.leftEdge.Points().size(), driver.Rows().size());
  EXPECT_TRUE(test::RingCrossesItself(LiteralRingsOf(driver.Rows())[0]));
  EXPECT_TRUE(RingsOf(driver.Rows()) == LiteralRingsOf(driver.Rows()));
}

TEST(Edge, RingsRunClockwiseWhenDrivenForward) {
  for (double yaw = 0; yaw < 6; yaw += 0.5) {
    for (const double turn : {-kRight, 0.5 * -kRight, 0.5 * kRight, kRight}) {
      for (const double radius : {0.0, 3.0, 20.0}) {
        const auto rings = RingsOf(test::Driver({5e5, 5e6}, yaw, kWidth, 1)
                                       .Straight(24)
                                       .Turn(turn, radius)
                                       .Straight(24)
                                       .Rows());
        ASSERT_EQ(rings.size(), 1U);
        EXPECT_LT(PolygonArea(rings[0]), 0) << yaw << " " << turn << " " << radius;
      }
    }
  }
}

}  // namespace
}  // namespace kestrin::coverage
