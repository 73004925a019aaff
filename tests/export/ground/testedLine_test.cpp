#include "export/ground/testedLine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "tests/export/ground/drawnLines.h"
#include "tools/sample/randomness.h"

namespace kestrin::ground {
namespace {

using test::Closed;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kEndless = std::numeric_limits<double>::infinity();

/// How a closed line keeps clear of itself, which must not depend on where it is begun, nor
/// on which way it is drawn.
Clearance ClearanceFromAnywhere(Line closed, double longest = 0) {
  const Clearance kept = test::ClearanceOf(closed, longest);
  for (std::size_t i = 1; i < closed.size(); ++i) {
    closed.pop_back();
    std::rotate(closed.begin(), closed.begin() + 1, closed.end());
    closed = Closed(closed);
    EXPECT_EQ(test::ClearanceOf(closed, longest), kept) << "begun at point " << i;
    const Line back(closed.rbegin(), closed.rend());
    EXPECT_EQ(test::ClearanceOf(back, longest), kept) << "back from point " << i;
  }
  return kept;
}

TEST(TestedLine, OneThatCrossesNothingIsClear) {
  const Line square = test::Rectangle(0, 0, 10, 10);
  EXPECT_EQ(ClearanceFromAnywhere(square, 10), Clearance::kWide);
  // Nobody asked how wide.
  EXPECT_EQ(ClearanceFromAnywhere(square), Clearance::kTight);
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {0, 5}, {0, 9}, {9, 9}, {9, 0}}), 9),
            Clearance::kWide);
}

TEST(TestedLine, CrossingIsFound) {
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {10, 10}, {10, 0}, {0, 10}})), Clearance::kNone);
}

TEST(TestedLine, VertexOnASegmentTouches) {
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {0, 10}, {10, 10}, {0, 5}, {10, 0}})),
            Clearance::kNone);
  // The other way round: a segment drawn through an earlier vertex.
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 5}, {10, 10}, {0, 10}, {0, 0}, {10, 0}})),
            Clearance::kNone);
}

TEST(TestedLine, VertexOnAVertexTouches) {
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {5, 5}, {0, 10}, {10, 10}, {5, 5}, {10, 0}})),
            Clearance::kNone);
}

TEST(TestedLine, SegmentsThatShareAPieceOfALineTouch) {
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {0, 10}, {5, 12}, {0, 8}, {0, 4}, {5, 0}})),
            Clearance::kNone);
  // On one line and apart from each other they do not.
  EXPECT_NE(ClearanceFromAnywhere(Closed({{0, 0}, {0, 3}, {5, 4}, {0, 5}, {0, 8}, {9, 4}})),
            Clearance::kNone);
}

TEST(TestedLine, FoldBackTouches) {
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {0, 10}, {0, 6}, {10, 6}})), Clearance::kNone);
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {0, 10}, {0, 14}, {10, 6}})), Clearance::kTight);
}

TEST(TestedLine, ClosingSegmentIsTestedLikeAnother) {
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {10, 0}, {10, 10}, {5, -5}})), Clearance::kNone);
  // Back over the last segment, and back over the first.
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {5, 5}, {10, 0}, {15, 0}})), Clearance::kNone);
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {10, 0}, {15, 5}, {5, 0}})), Clearance::kNone);
}

TEST(TestedLine, FewerThanThreeSegmentsAreNoRing) {
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {0, 10}})), Clearance::kNone);
  EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {0, 10}, {0, 4}})), Clearance::kNone);
  TestedLine line;
  line.Restart(0);
  line.Close();
  EXPECT_EQ(line.Kept(), Clearance::kNone);
}

TEST(TestedLine, PointWhereItIsAlreadyIsNoPoint) {
  const Line doubled = Closed({{0, 0}, {0, 10}, {0, 10}, {10, 10}, {10, 10}, {10, 0}});
  EXPECT_EQ(test::ClearanceOf(doubled, 10), Clearance::kWide);
}

TEST(TestedLine, WithoutFiniteEndsIsNone) {
  for (const double what : {kNone, kEndless, -kEndless}) {
    EXPECT_EQ(ClearanceFromAnywhere(Closed({{0, 0}, {0, 10}, {10, 10}, {10, what}}), 10),
              Clearance::kNone);
    EXPECT_EQ(ClearanceFromAnywhere(Closed({{what, 0}, {0, 10}, {10, 10}, {10, 0}}), 10),
              Clearance::kNone);
  }
}

TEST(TestedLine, RestartedForgetsWhatItWas) {
  TestedLine line;
  for (const double last : {kNone, 0.0, -10.0, 0.0}) {
    line.Restart(4, 10);
    for (const geo::UtmPoint& point : Line{{0, 0}, {0, 10}, {10, 10}, {10, last}}) line.Add(point);
    line.Close();
    EXPECT_EQ(line.Kept(), std::isnan(last) ? Clearance::kNone : Clearance::kWide);
    EXPECT_EQ(line.Points().size(), 5U);
  }
}

/// A closed line with one corner at so much beside the middle of its diagonal.
Clearance BesideADiagonal(geo::UtmPoint corner) {
  constexpr double kEast = 500000;
  constexpr double kNorth = 4500000;
  constexpr double kStep = 0x1p-20;
  Line line{{0, 0}, {256 + 2 * kStep, 256}, {256, 0}, corner, {128, 0}};
  for (geo::UtmPoint& point : line) point = {point.easting + kEast, point.northing + kNorth};
  return ClearanceFromAnywhere(Closed(line), 400);
}

TEST(TestedLine, AnswersAreExactBelowTheRoundingOfProducts) {
  constexpr double kStep = 0x1p-20;
  // (128 + s)(128 - s) and 128 * 128 are one number when rounded. The corner is a
  // ten-thousandth of a millionth of a millimetre beside the diagonal all the same.
  EXPECT_EQ(BesideADiagonal({128, 128 - kStep}), Clearance::kTight);
  EXPECT_EQ(BesideADiagonal({128 + kStep, 128}), Clearance::kNone) << "on the diagonal";
  EXPECT_EQ(BesideADiagonal({128 + 2 * kStep, 128 + kStep}), Clearance::kNone) << "beyond it";
  EXPECT_EQ(BesideADiagonal({128, 127}), Clearance::kWide);
}

/// A bay so wide and a hundred metres deep.
Line Bay(double wide) {
  return Closed(
      {{0, 0}, {0, 101}, {10, 101}, {10, 1}, {10 + wide, 1}, {10 + wide, 101}, {20, 101}, {20, 0}});
}

TEST(TestedLine, IsTightWhereProjectingCouldMakeItTouch) {
  // Sides of a hundred metres can come a millimetre closer to each other.
  EXPECT_EQ(ClearanceFromAnywhere(Bay(0.0012), 101), Clearance::kWide);
  EXPECT_EQ(ClearanceFromAnywhere(Bay(0.0009), 101), Clearance::kTight);
  EXPECT_EQ(ClearanceFromAnywhere(Bay(1e-9), 101), Clearance::kTight);
  EXPECT_EQ(ClearanceFromAnywhere(Bay(0), 101), Clearance::kNone);
}

TEST(TestedLine, IsTightWhereTheLongerOfTwoSidesEndsNearAShortOne) {
  // A side of a hundred metres ends so far above one of a metre, and one of a metre begins there.
  const auto above = [](double metres) {
    return Closed(
        {{0, 0}, {1, 0}, {3, -5}, {50, 50}, {0.5, 100}, {0.5, metres}, {-0.4, 0.5}, {-5, -5}});
  };
  EXPECT_EQ(ClearanceFromAnywhere(above(0.01), 100), Clearance::kWide);
  EXPECT_EQ(ClearanceFromAnywhere(above(0.0005), 100), Clearance::kTight);
}

/// A corner so wide, on a side of a hundred metres.
Line Needle(double wide) {
  return Closed({{0, 0}, {0, 10}, {100, 10}, {0, 10 + wide}, {0, 20}, {110, 20}, {110, 0}});
}

TEST(TestedLine, IsTightAtASharpCorner) {
  EXPECT_EQ(ClearanceFromAnywhere(Needle(0.1), 110), Clearance::kWide);
  EXPECT_EQ(ClearanceFromAnywhere(Needle(0.0005), 110), Clearance::kTight);
}

/// Whether a tight line is known to be simple where one of its points is elsewhere.
bool IsKnownToBeSimple(const Line& closed, geo::UtmPoint point, geo::UtmPoint elsewhere) {
  const TestedLine line = test::Tested(closed, 110);
  EXPECT_EQ(line.Kept(), Clearance::kTight);
  return line.IsSimpleIn([&](geo::UtmPoint at) { return at == point ? elsewhere : at; });
}

TEST(TestedLine, IsKnownToBeSimpleElsewhereWhereNoTightPlaceTouches) {
  const geo::UtmPoint corner{10.0005, 101};
  const Line bay = Bay(0.0005);
  EXPECT_TRUE(IsKnownToBeSimple(bay, {}, {}));
  EXPECT_TRUE(IsKnownToBeSimple(bay, corner, {10.0001, 101}));
  EXPECT_FALSE(IsKnownToBeSimple(bay, corner, {10, 101})) << "touches";
  EXPECT_FALSE(IsKnownToBeSimple(bay, corner, {9, 101})) << "crosses";
  const geo::UtmPoint end{0, 10.0005};
  const Line needle = Needle(0.0005);
  EXPECT_TRUE(IsKnownToBeSimple(needle, {}, {}));
  EXPECT_TRUE(IsKnownToBeSimple(needle, end, {0, 10.0001}));
  EXPECT_FALSE(IsKnownToBeSimple(needle, end, {0, 10})) << "folds back";
  // In a triangle there are but turns.
  EXPECT_FALSE(IsKnownToBeSimple(Closed({{0, 0}, {100, 0}, {0, 0.0005}}), {0, 0.0005}, {50, 0}));
  // Only the end of one comes near to the other's middle.
  const Line wedge = Closed({{0, 0}, {0, 10}, {100, 10}, {-50, 10.0007}, {-50, -5}});
  for (const Line& way : {wedge, Line(wedge.rbegin(), wedge.rend())}) {
    EXPECT_TRUE(IsKnownToBeSimple(way, {}, {}));
    EXPECT_FALSE(IsKnownToBeSimple(way, {0, 10}, {0, 11}));
  }
}

TEST(TestedLine, IsNotKnownToBeSimpleWhereTwoOfItsPointsBecomeOne) {
  // The segments before and after a short one touch then, which may or may not do harm.
  const Line stepped =
      Closed({{0, 0}, {0, 10}, {50, 10}, {50 + 1e-8, 10 - 1e-8}, {110, 10}, {110, 0}});
  EXPECT_TRUE(IsKnownToBeSimple(stepped, {}, {}));
  EXPECT_FALSE(IsKnownToBeSimple(stepped, stepped[3], stepped[2]));
}

TEST(TestedLine, IsNotKnownToBeSimpleWhereNotAllTightPlacesAreKnown) {
  // At each there are tight places.
  const auto needles = [](int count) {
    Line line;
    for (int i = 0; i < count; ++i) {
      line.push_back({2.0 * i, 0});
      line.push_back({2.0 * i + 0.0005, 100});
      line.push_back({2.0 * i + 0.001, 0});
    }
    line.push_back({2.0 * count, -5});
    line.push_back({0, -5});
    return test::Tested(Closed(line), 110);
  };
  const auto same = [](geo::UtmPoint at) { return at; };
  EXPECT_TRUE(needles(50).IsSimpleIn(same));
  EXPECT_FALSE(needles(300).IsSimpleIn(same)) << "too many";
  EXPECT_FALSE(test::Tested(Bay(0), 110).IsSimpleIn(same)) << "not simple here either";
  // Nobody asked how tight.
  EXPECT_FALSE(test::Tested(Needle(0.0005)).IsSimpleIn(same));
}

TEST(TestedLine, RestartedForgetsWhereItWasTight) {
  const auto touching = [](geo::UtmPoint at) {
    return at == geo::UtmPoint{10.0005, 101} ? geo::UtmPoint{10, 101} : at;
  };
  TestedLine line = test::Tested(Bay(0.0005), 110);
  EXPECT_FALSE(line.IsSimpleIn(touching));
  line.Restart(4, 0.5);
  for (const geo::UtmPoint& point : Line{{0, 0}, {0, 0.5}, {5e-8, 0.5}, {5e-8, 0}}) line.Add(point);
  line.Close();
  EXPECT_TRUE(line.IsSimpleIn(touching));
}

/// Beside a side of 400 m, which asks for 16 mm: away from it and back with steps that become so
/// short that far less is looked up around them, and at last along it at 20 mm, dipping so deep
/// between.
Line DippingToALongSide(double dip) {
  constexpr double kStep = 0.00005;
  constexpr double kHeight = 0.02;
  Line line;
  for (int i = -15; i <= 0; ++i) line.push_back({1.0 * i, 0});
  for (int i = 0; i <= 200; ++i) line.push_back({400, 100.0 * i});
  for (double height = 20000; height > kHeight; height *= 0.9975) line.push_back({200, height});
  for (int i = 1; i <= 2000; ++i) {
    line.push_back({200 - kStep * i, kHeight - dip * (1 - std::abs(i - 1000) / 1000.0)});
  }
  for (double height = kHeight; height < 19900; height *= 1.0025) line.push_back({199.9, height});
  for (int i = 51; i > 0; --i) line.push_back({-15, 390.0 * i});
  return Closed(line);
}

TEST(TestedLine, IsTightWhereTheShortestStepsComeNearToALongSide) {
  EXPECT_EQ(test::ClearanceOf(DippingToALongSide(0.003), 400), Clearance::kWide);
  EXPECT_EQ(test::ClearanceOf(DippingToALongSide(0.006), 400), Clearance::kTight);
}

/// A comb of so many teeth a metre high, each a metre from the next.
Line Comb(int teeth) {
  Line line;
  for (int i = 0; i < teeth; ++i) {
    line.push_back({2.0 * i, 0});
    line.push_back({2.0 * i + 1, 1});
  }
  line.push_back({2.0 * teeth, -5});
  line.push_back({0, -5});
  return line;
}

TEST(TestedLine, OneCrossingAmongManyPointsIsFound) {
  Line comb = Comb(50000);
  EXPECT_EQ(test::ClearanceOf(Closed(comb), 100000), Clearance::kTight);
  comb.back() = {1000, 0.5};
  EXPECT_EQ(test::ClearanceOf(Closed(comb)), Clearance::kNone);
  comb = Comb(50000);
  comb[60000].northing = -5;
  EXPECT_EQ(test::ClearanceOf(Closed(comb)), Clearance::kNone) << "touches the back";
}

/// Which side, in whole numbers.
int WholeSide(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint point) {
  const double side = Cross(a, b, point);
  return side > 0 ? 1 : side < 0 ? -1 : 0;
}

bool LiesOn(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint point) {
  return WholeSide(a, b, point) == 0 && geo::Box::Of(a, b).Holds(point);
}

/// Whether two segments have a point in common.
bool Share(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d) {
  if (LiesOn(a, b, c) || LiesOn(a, b, d) || LiesOn(c, d, a) || LiesOn(c, d, b)) return true;
  return WholeSide(a, b, c) * WholeSide(a, b, d) < 0 && WholeSide(c, d, a) * WholeSide(c, d, b) < 0;
}

/// Every pair of segments compared. No two points in a row are equal.
bool IsSimple(const Line& closed) {
  const std::size_t count = closed.size() - 1;
  for (std::size_t i = 0; i < count; ++i) {
    const geo::UtmPoint& after = closed[(i + 1) % count + 1];
    if (LiesOn(closed[i], closed[i + 1], after) || LiesOn(closed[i + 1], after, closed[i])) {
      return false;
    }
    for (std::size_t k = i + 2; k < count; ++k) {
      if (i == 0 && k + 1 == count) continue;
      if (Share(closed[i], closed[i + 1], closed[k], closed[k + 1])) return false;
    }
  }
  return true;
}

double DistanceTo(geo::UtmPoint point, geo::UtmPoint a, geo::UtmPoint b) {
  const double share = Dot(a, point, b) / Dot(a, b, b);
  const geo::UtmPoint foot{a.easting + share * (b.easting - a.easting),
                           a.northing + share * (b.northing - a.northing)};
  const geo::UtmPoint& nearest = share <= 0 ? a : share >= 1 ? b : foot;
  return std::hypot(point.easting - nearest.easting, point.northing - nearest.northing);
}

/// How far from each other the parts of a simple line must be, for each two by the longer of them:
/// every pair compared. At a corner that is not sharp two may meet.
Clearance ClearanceOfSimple(const Line& closed) {
  const std::size_t count = closed.size() - 1;
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t k = 0; k < count; ++k) {
      const geo::UtmPoint& a = closed[i];
      const geo::UtmPoint& b = closed[i + 1];
      const geo::UtmPoint& c = closed[k];
      const geo::UtmPoint& d = closed[k + 1];
      double metres = std::min(
          {DistanceTo(a, c, d), DistanceTo(b, c, d), DistanceTo(c, a, b), DistanceTo(d, a, b)});
      if (k == i || k == (i + count - 1) % count) continue;
      if (k == (i + 1) % count) {
        if (Dot(b, a, d) <= 0) continue;
        metres = std::min(DistanceTo(a, b, d), DistanceTo(d, a, b));
      }
      if (metres < 1e-7 + 1e-7 * std::max(Dot(a, b, b), Dot(c, d, d))) return Clearance::kTight;
    }
  }
  return Clearance::kWide;
}

TEST(TestedLine, AmongHairsItAgreesWithEveryPairCompared) {
  // Corners lie on a grid of whole metres, or of eighths, and beside it by hairs.
  constexpr double kHair = 0x1p-22;
  sample::Randomness chance(13);
  int tight = 0;
  int wide = 0;
  for (int run = 0; run < 40000; ++run) {
    const double metres = run % 2 == 0 ? 1 : 0.125;
    Line line;
    for (std::uint64_t i = 3 + chance.Next() % 5; i > 0; --i) {
      geo::UtmPoint corner;
      for (double* at : {&corner.easting, &corner.northing}) {
        *at = metres * static_cast<double>(chance.Next() % 5);
        if (chance.Chance(0.5)) *at += kHair * (static_cast<double>(chance.Next() % 17) - 8);
      }
      line.push_back(corner);
      if (line.size() > 1 && line.back() == line[line.size() - 2]) line.pop_back();
    }
    while (line.size() > 1 && line.back() == line.front()) line.pop_back();
    if (line.size() < 3) continue;
    line = Closed(line);
    double longest = 0;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
      longest = std::max(longest, std::sqrt(SquareDistance(line[i], line[i + 1])));
    }
    const Clearance expected = IsSimple(line) ? ClearanceOfSimple(line) : Clearance::kNone;
    ASSERT_EQ(test::ClearanceOf(line, longest), expected) << run;
    tight += expected == Clearance::kTight ? 1 : 0;
    wide += expected == Clearance::kWide ? 1 : 0;
  }
  EXPECT_GT(tight, 1000);
  EXPECT_GT(wide, 1000);
}

TEST(TestedLine, OnAGridOfWholeMetresItAgreesWithEveryPairCompared) {
  sample::Randomness chance(7);
  int simple = 0;
  int others = 0;
  for (int run = 0; run < 20000; ++run) {
    Line line;
    for (std::uint64_t i = 3 + chance.Next() % 5; i > 0; --i) {
      line.push_back(
          {static_cast<double>(chance.Next() % 7), static_cast<double>(chance.Next() % 7)});
      if (line.size() > 1 && line.back() == line[line.size() - 2]) line.pop_back();
    }
    while (line.size() > 1 && line.back() == line.front()) line.pop_back();
    if (line.size() < 3) continue;
    line = Closed(line);
    const bool expected = IsSimple(line);
    ASSERT_EQ(test::ClearanceOf(line) != Clearance::kNone, expected) << run;
    ++(expected ? simple : others);
  }
  EXPECT_GT(simple, 2000);
  EXPECT_GT(others, 2000);
}

}  // namespace
}  // namespace kestrin::ground
