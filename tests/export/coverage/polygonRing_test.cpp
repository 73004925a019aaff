#include "export/coverage/polygonRing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "tests/export/coverage/ringJudge.h"
#include "tests/export/coverage/ringsOf.h"
#include "tests/export/ground/drawnLines.h"
#include "tests/support/recordingHost.h"
#include "tools/sample/randomness.h"

namespace kestrin::coverage {
namespace {

using Edges = PolygonBuilder::Edges;
using ground::Clearance;
using ground::Line;

constexpr geo::UtmPoint kField{500000, 4900000};

/// Points in metres from the field's corner.
Line InField(Line points) {
  for (geo::UtmPoint& point : points) {
    point = {kField.easting + point.easting, kField.northing + point.northing};
  }
  return points;
}

Edges InField(Edges edges) { return {InField(edges.left), InField(edges.right)}; }

/// Due north, so many metres long and wide.
Edges Straight(double length, double width) {
  return InField(Edges{{{0, 0}, {0, length / 2}, {0, length}},
                       {{width, 0}, {width, length / 2}, {width, length}}});
}

/// The same with a loop in its left edge as wide and high as `loop` says, its area half
/// that squared.
Edges Looped(double length, double width, double loop) {
  const double middle = length / 2;
  return InField(
      Edges{{{0, 0}, {0, middle + loop}, {loop, middle}, {-loop, middle}, {-loop, length}},
            {{width, 0},
             {width, middle + loop},
             {width, middle + 1.1 * loop},
             {width, middle + 1.2 * loop},
             {width, length}}});
}

/// The ring as the edges draw it.
Line DrawnAround(const Edges& edges) {
  Line line = edges.left;
  line.insert(line.end(), edges.right.rbegin(), edges.right.rend());
  return test::Closed(line);
}

/// To the bit, NaN for NaN.
bool AreSame(const Line& one, const Line& other) {
  return std::ranges::equal(one, other, [](const geo::UtmPoint& a, const geo::UtmPoint& b) {
    return a == b || (!a.IsFinite() && !b.IsFinite());
  });
}

Line Copied(Ring ring) { return {ring.begin(), ring.end()}; }

class PolygonRings : public testing::Test {
 protected:
  Line Of(const Edges& edges) {
    ring_.Clear();
    ring_.Draw(edges, saved_);
    const std::int64_t drawn = host_.yields;
    ring_.Do();
    if (host_.yields > drawn) ++unions_;
    return Copied(ring_.Points());
  }

  test::RecordingHost host_;
  double saved_ = 0;
  int unions_ = 0;  // made so far
  PolygonRing ring_{test::kRingZone, [this] { host_.Yield(); }};
};

TEST_F(PolygonRings, ThatCrossNothingStayAsDrawn) {
  const Edges straight = Straight(30, 10);
  EXPECT_EQ(Of(straight), DrawnAround(straight));
  // Also counter-clockwise, as reversing draws it.
  const Edges mirrored{straight.right, straight.left};
  EXPECT_EQ(Of(mirrored), DrawnAround(mirrored));
}

TEST_F(PolygonRings, OfFewerThanThreePointsAreNone) {
  EXPECT_TRUE(Of(InField(Edges{{{0, 0}}, {{5, 0}}})).empty());
  EXPECT_TRUE(Of(InField(Edges{{{0, 0}, {0, 0}}, {{5, 0}, {5, 0}}})).empty());
}

TEST_F(PolygonRings, WithoutGroundStayAsDrawn) {
  // No width, across its own line; and along the boom itself.
  const Line way{{0, 0}, {10, 10}, {10, 0}, {0, 10}};
  Line drawn = InField({{0, 0}, {10, 10}, {10, 0}, {0, 10}, {10, 0}, {10, 10}, {0, 0}});
  EXPECT_EQ(Of(InField(Edges{way, way})), drawn);
  // Also where it comes by its beginning once more.
  const Line back{{0, 0}, {10, 10}, {0, 0}, {5, 0}};
  drawn = InField({{0, 0}, {10, 10}, {0, 0}, {5, 0}, {0, 0}, {10, 10}, {0, 0}});
  EXPECT_EQ(Of(InField(Edges{back, back})), drawn);
  // A ten-thousandth of a millimetre is what rounding makes of none.
  const Edges thin = InField(Edges{way, {{1e-7, 0}, {10, 10}, {10 + 1e-7, 0}, {1e-7, 10}}});
  EXPECT_EQ(Of(thin), DrawnAround(thin));
  const Edges along = InField(Edges{{{0, 0}, {3, 0}, {9, 0}}, {{5, 0}, {8, 0}, {14, 0}}});
  EXPECT_EQ(Of(along), DrawnAround(along));
}

TEST_F(PolygonRings, WhoseRowsAreAllNotFiniteStayAsDrawn) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  const Edges edges{{{none, 0}, {none, 1}, {none, 2}}, {{1, none}, {2, none}, {3, none}}};
  EXPECT_TRUE(AreSame(Of(edges), DrawnAround(edges)));
  EXPECT_EQ(unions_, 0);
}

TEST_F(PolygonRings, LeaveRowsOutThatAreNoPlaces) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  constexpr double kEndless = std::numeric_limits<double>::infinity();
  // A way far to the north and back folds the ring.
  for (const geo::UtmPoint off :
       {geo::UtmPoint{kNone, 0}, {0, kNone}, {kEndless, 0}, {0, -kEndless}, {0, 1e9}, {0, -1e9}}) {
    Edges edges = Straight(30, 10);
    edges.left[1].easting += off.easting;
    edges.left[1].northing += off.northing;
    const Line ring = Of(edges);
    EXPECT_EQ(test::ClearanceOf(ring, 30), Clearance::kWide) << off.easting << ' ' << off.northing;
    EXPECT_DOUBLE_EQ(test::SquareMetresIn(ring), 300) << off.easting << ' ' << off.northing;
  }
}

TEST_F(PolygonRings, SaveNothingAtPolygonsThatAreNotFinite) {
  Edges endless = Straight(100, 1);
  endless.left[1].northing = std::numeric_limits<double>::infinity();
  Of(endless);
  endless.left[1].northing = std::numeric_limits<double>::quiet_NaN();
  Of(endless);
  unions_ = 0;
  Of(Looped(1, 1, 0.15));
  EXPECT_EQ(unions_, 1);
  Of(Looped(20, 10, 0.2));
  EXPECT_EQ(unions_, 1) << "its own ground allows that";
}

TEST_F(PolygonRings, OfRowsThatAreNoPlacesAreMadeWithoutAFailure) {
  constexpr double kAnywhere[] = {0,    1,    2.5,   1e3,   1e7,   1e10,
                                  1e16, 1e18, 1e100, 1e160, 1e300, 1.7e308};
  sample::Randomness chance(5);
  const auto coordinate = [&](std::uint64_t wildest) {
    return kAnywhere[chance.Next() % wildest] * (chance.Chance(0.5) ? 1 : -1);
  };
  for (int run = 0; run < 1000; ++run) {
    const std::uint64_t wildest = 2 + chance.Next() % 11;
    Edges edges;
    for (int i = 0; i < 6; ++i) {
      edges.left.push_back({coordinate(wildest), coordinate(wildest)});
      edges.right.push_back({coordinate(wildest), coordinate(wildest)});
    }
    const Line ring = Of(edges);
    ASSERT_GE(ring.size(), 4U) << run;
    EXPECT_EQ(ring.front(), ring.back()) << run;
  }
}

TEST_F(PolygonRings, OfNumbersThatTheLibraryDoesNotSurviveAreMade) {
  const Edges edges{
      {{1e16, 1e18},
       {-1e16, -1e18},
       {0, -1.7e308},
       {1e10, 1.7e308},
       {1000, -1e100},
       {-1e18, -1e160}},
      {{-2.5, 1e7}, {1.7e308, -1e18}, {1e10, -1e16}, {-2.5, 1}, {-1.7e308, -2.5}, {-1e18, -1e16}}};
  EXPECT_EQ(Of(edges), DrawnAround(edges));
}

TEST_F(PolygonRings, AreRepairedFromTheirOwnBeginningClockwise) {
  const Edges small = Looped(0.8, 0.6, 0.01);
  for (const Edges& edges : {small, Edges{small.right, small.left}}) {
    ASSERT_EQ(test::ClearanceOf(DrawnAround(edges)), Clearance::kNone);
    EXPECT_LT(ground::SignedArea(Of(edges)), 0);
  }
  const Edges looped = Looped(20, 10, 0.2);
  ASSERT_EQ(test::ClearanceOf(DrawnAround(looped)), Clearance::kNone);
  for (const Edges& edges : {looped, Edges{looped.right, looped.left}}) {
    const Line ring = Of(edges);
    EXPECT_EQ(test::ClearanceOf(ring, 20), Clearance::kWide);
    EXPECT_EQ(ring.front(), edges.left.front());
    EXPECT_EQ(ring.back(), edges.left.front());
    EXPECT_LT(ground::SignedArea(ring), 0);
    EXPECT_NEAR(test::SquareMetresIn(ring), 202, 0.1);
  }
}

TEST_F(PolygonRings, LoseALoopOfAFewThousandthsOfTheirGround) {
  // 0.02 square metres of 200, without another polygon to save at.
  const Line ring = Of(Looped(20, 10, 0.2));
  EXPECT_EQ(ring.size(), DrawnAround(Looped(20, 10, 0.2)).size() - 1);
  EXPECT_EQ(unions_, 0);
}

// A kilometre to the east is straight in the plane, and in degrees bends four millimetres past
// what lies two beside it, 50 m from its end.
TEST_F(PolygonRings, ThatTouchInDegreesAloneGiveWay) {
  Edges edges{{{-500, 0}}, {{-500, -10}}};
  for (int i = 0; i < 20; ++i) {
    edges.left.push_back({500 + 0.1 * i, 0});
    edges.right.push_back({-450 + 50.0 * i, i == 0 ? -0.002 : -10});
  }
  const auto mirrored = [](Line line, double east, double north) {
    for (geo::UtmPoint& point : line) point = {east * point.easting, north * point.northing};
    return line;
  };
  Edges reversed{mirrored(edges.left, -1, 1), mirrored(edges.right, -1, 1)};
  std::ranges::reverse(reversed.left);
  std::ranges::reverse(reversed.right);
  const geo::UtmProjection projection(test::kRingZone);
  test::RingJudge judge(projection);
  const auto whyUnfitInDegrees = [&](Line line) {
    for (geo::UtmPoint& point : line) {
      const geo::GeoPoint degrees = projection.ToGeo(point);
      point = {degrees.longitude, degrees.latitude};
    }
    return judge.WhyUnfit(line);
  };
  for (const Edges& way : {edges, reversed, Edges{edges.right, edges.left}}) {
    const Line drawn = DrawnAround(InField(way));
    ASSERT_EQ(test::ClearanceOf(drawn, 1000), Clearance::kTight);
    ASSERT_EQ(judge.WhyUnfit(drawn), "");
    ASSERT_NE(whyUnfitInDegrees(drawn), "");
    const Line ring = Of(InField(way));
    EXPECT_EQ(whyUnfitInDegrees(ring), "");
    EXPECT_NEAR(test::SquareMetresIn(ring), test::SquareMetresIn(drawn), 1);
  }
}

/// A hand's breadth wide, so that only degrees can tell whether its sides meet.
Edges LongAndNarrow(geo::UtmPoint from, int rows, geo::UtmPoint step = {0, 1000}) {
  Edges edges;
  for (int i = 0; i < rows; ++i) {
    const geo::UtmPoint at{from.easting + step.easting * i, from.northing + step.northing * i};
    edges.left.push_back(at);
    edges.right.push_back({at.easting + 0.05, at.northing - 0.05});
  }
  return edges;
}

TEST_F(PolygonRings, ThatAreSimpleInDegreesTooStayAsDrawn) {
  const Edges edges = LongAndNarrow(kField, 3);
  ASSERT_EQ(test::ClearanceOf(DrawnAround(edges), 1000), Clearance::kTight);
  EXPECT_EQ(Of(edges), DrawnAround(edges));
  EXPECT_EQ(host_.yields, 0) << "few places had to be asked";
}

TEST_F(PolygonRings, ThatAreTightInManyPlacesAreProjectedWholeAndYieldEvery64Points) {
  const Edges edges = LongAndNarrow(kField, 96);
  ASSERT_EQ(test::ClearanceOf(DrawnAround(edges), 1000), Clearance::kTight);
  EXPECT_EQ(Of(edges), DrawnAround(edges));
  EXPECT_EQ(host_.yields, 9) << "192 as they are drawn, 193 projected, 192 drawn in degrees";
}

/// Whether all points of a narrow ring are projected to know of it, in a zone.
bool IsProjectedWhole(geo::UtmPoint from, std::int16_t zone = test::kRingZone,
                      geo::UtmPoint step = {0, 1000}) {
  int yields = 0;
  PolygonRing ring(zone, [&] { ++yields; });
  double saved = 0;
  // To be drawn alone ten times is too little for a yield.
  for (int i = 0; i < 10; ++i) ring.Draw(LongAndNarrow(from, 3, step), saved);
  return yields > 0;
}

TEST_F(PolygonRings, ThatDegreesMayDoMoreToThanToBendThemAreProjectedWhole) {
  // Far beside their zone.
  EXPECT_TRUE(IsProjectedWhole({-1, 5e6}));
  EXPECT_FALSE(IsProjectedWhole({0, 5e6}));
  EXPECT_FALSE(IsProjectedWhole({1e6 - 1, 5e6}));
  EXPECT_TRUE(IsProjectedWhole({1e6, 5e6}));
  // 100 km across.
  EXPECT_FALSE(IsProjectedWhole(kField, test::kRingZone, {0, 49'999}));
  EXPECT_TRUE(IsProjectedWhole(kField, test::kRingZone, {0, 50'001}));
  EXPECT_FALSE(IsProjectedWhole(kField, test::kRingZone, {49'999, 0}));
  EXPECT_TRUE(IsProjectedWhole(kField, test::kRingZone, {50'001, 0}));
  // Near a pole: the 75th parallel runs at 8,323.6 km.
  EXPECT_FALSE(IsProjectedWhole({500'000, 8'323'000}));
  EXPECT_TRUE(IsProjectedWhole({500'000, 8'324'000}));
  EXPECT_FALSE(IsProjectedWhole({500'000, -8'323'000}));
  EXPECT_TRUE(IsProjectedWhole({500'000, -8'324'000}));
  // Near the antimeridian: the zones about 165 and 171 degrees.
  EXPECT_FALSE(IsProjectedWhole(kField, 58));
  EXPECT_FALSE(IsProjectedWhole(kField, 3));
  EXPECT_TRUE(IsProjectedWhole(kField, 59));
  EXPECT_TRUE(IsProjectedWhole(kField, 2));
}

TEST_F(PolygonRings, KeepTheGroundOfALargerLoop) {
  const Line ring = Of(Looped(20, 10, 2));
  EXPECT_EQ(unions_, 1);
  EXPECT_EQ(test::ClearanceOf(ring, 20), Clearance::kWide);
}

TEST_F(PolygonRings, OfSmallPolygonsMayLoseWhatAThousandthOfAllGroundAllows) {
  // What cutting this loop off may spoil is 0.078 square metres: a hundredth in the loop,
  // and what it sweeps backward, which is not looked at more closely.
  const Edges small = Looped(1, 1, 0.15);
  Of(small);
  EXPECT_EQ(unions_, 1) << "nothing saved";
  // Of a hundred square metres a tenth may go: enough for one, and not for another.
  Of(Straight(100, 1));
  EXPECT_EQ(Of(small).size(), DrawnAround(small).size() - 1);
  EXPECT_EQ(unions_, 1);
  Of(small);
  EXPECT_EQ(unions_, 2) << "savings are spent";
  // What one of them leaves is there for the next.
  Of(Straight(200, 1));
  Of(small);
  Of(small);
  EXPECT_EQ(unions_, 2);
}

TEST_F(PolygonRings, LoseNoMoreThanHalfASquareMetreOfSavings) {
  Of(Straight(100000, 40));
  Of(Looped(8, 6, 0.2));  // 0.47 square metres
  EXPECT_EQ(unions_, 0);
  Of(Looped(8, 6, 0.3));  // 0.77 square metres
  EXPECT_EQ(unions_, 1);
}

TEST_F(PolygonRings, YieldWhileTheyAreDrawnAndWhileTheyAreUnfolded) {
  constexpr int kRows = 6400;
  Edges way;
  for (int i = 0; i < kRows; ++i) {
    way.left.push_back({0, 0.5 * i});
    way.right.push_back({20, 0.5 * i});
  }
  way = InField(way);
  Of(way);
  EXPECT_EQ(host_.yields, 2 * kRows / 64);
  // One point put back closes a loop of a hand's breadth.
  way.left[kRows / 2].northing -= 0.6;
  host_.yields = 0;
  EXPECT_NE(Of(way), DrawnAround(way));
  EXPECT_EQ(unions_, 0);
  // Two ends of each row drawn, both ways of its sweep; twice the ring, and the one in its place.
  EXPECT_NEAR(static_cast<double>(host_.yields), (2 + 2 + 4 + 2) * kRows / 64, 1);
}

TEST_F(PolygonRings, LetACancelPass) {
  host_.cancelAt = 1;
  EXPECT_THROW(Of(Looped(20, 10, 2)), base::RunCancelled);
}

TEST_F(PolygonRings, AreMadeAnewAfterACancel) {
  host_.cancelAt = 1;
  EXPECT_THROW(Of(Looped(20, 10, 2)), base::RunCancelled);
  host_.cancelAt = 0;
  EXPECT_EQ(Of(Straight(30, 10)), DrawnAround(Straight(30, 10)));
}

TEST(AcresIn, AreThoseOfTheRingWhicheverWayItRuns) {
  Line ring = test::Rectangle(0, 0, 100, 100);
  EXPECT_DOUBLE_EQ(AcresIn(ring), 2.47105381);
  std::ranges::reverse(ring);
  EXPECT_DOUBLE_EQ(AcresIn(ring), 2.47105381);
}

}  // namespace
}  // namespace kestrin::coverage
