#include "export/ground/oneLine.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/export/ground/drawnLines.h"
#include "tools/sample/randomness.h"

namespace kestrin::ground {
namespace {

using test::Closed;
using test::Rectangle;

class OneLine : public testing::Test {
 protected:
  Geos::Area Together(const std::vector<Piece>& pieces) {
    std::vector<Geos::Area> areas;
    for (const Piece& piece : pieces) areas.push_back(geos_.Inside(piece));
    return geos_.Union(std::move(areas));
  }

  /// The line around pieces, which must be that of a valid ring around nearly their ground.
  Line ExpectAround(const std::vector<Piece>& pieces) {
    const Geos::Area area = Together(pieces);
    const Line line = OneLineAround(geos_, area);
    EXPECT_GE(line.size(), 4U);
    if (line.size() < 4) return line;
    EXPECT_EQ(line.front(), line.back());
    EXPECT_NE(test::ClearanceOf(line), Clearance::kNone);
    EXPECT_LT(SignedArea(line), 0) << "clockwise";
    EXPECT_LE(test::Between(geos_, area, geos_.Inside(line)), 0.001 * geos_.SquareMetres(area));
    return line;
  }

  /// Whether a line has a corner so near.
  static bool Has(const Line& line, geo::UtmPoint corner) {
    return std::ranges::any_of(
        line, [&](geo::UtmPoint point) { return SquareDistance(point, corner) < 1e-14; });
  }

  static constexpr double kHalf = 0.0005;  // of a neck's and a slit's width
  Geos geos_;
};

TEST_F(OneLine, OfOnePieceIsItsOwn) {
  EXPECT_EQ(ExpectAround({{Rectangle(0, 0, 10, 10), {}}}).size(), 5U);
}

TEST_F(OneLine, PiecesApartAreJoinedByANeck) {
  const Line line = ExpectAround({{Rectangle(0, 0, 10, 10), {}}, {Rectangle(12, 3, 20, 9), {}}});
  EXPECT_NEAR(test::SquareMetresIn(line), 148, 0.01);
}

TEST_F(OneLine, NeckIsAMillimetreWideAndLeadsTheShortestWay) {
  // So far along a side that is askew, and so far out from it.
  const auto at = [](double along, double out) {
    return geo::UtmPoint{0.8 * along + 0.6 * out, 0.8 * out - 0.6 * along};
  };
  const Line line = ExpectAround({{Closed({at(0, 0), at(10, 0), at(10, -10), at(0, -10)}), {}},
                                  {Closed({at(5, 2), at(3, 4), at(7, 4)}), {}}});
  EXPECT_EQ(line.size(), 4 + 2 + 4 + 1U) << "two corners at the side, two for the tip";
  EXPECT_TRUE(Has(line, at(5 - kHalf, 0)));
  EXPECT_TRUE(Has(line, at(5 + kHalf, 0)));
  EXPECT_TRUE(Has(line, at(5 - kHalf, 2 + kHalf)));
  EXPECT_TRUE(Has(line, at(5 + kHalf, 2 + kHalf)));
}

TEST_F(OneLine, ManyPiecesAreJoinedToTheLargest) {
  std::vector<Piece> pieces{{Rectangle(0, 0, 100, 10), {}}};
  for (int i = 0; i < 10; ++i) {
    pieces.push_back({Rectangle(10.0 * i, 11.0 + i, 10.0 * i + 5, 16.0 + i), {}});
  }
  ExpectAround(pieces);
}

TEST_F(OneLine, HoleIsOpenedByASlit) {
  const Line line = ExpectAround({{Rectangle(0, 0, 10, 10), {Rectangle(4, 4, 6, 6)}}});
  EXPECT_NEAR(test::SquareMetresIn(line), 96, 0.01);
}

TEST_F(OneLine, HolesInARowAreOpenedIntoEachOther) {
  ExpectAround({{Rectangle(0, 0, 10, 30),
                 {Rectangle(4, 4, 6, 6), Rectangle(4, 10, 6, 12), Rectangle(4, 16, 6, 18),
                  Rectangle(3, 22, 7, 24)}}});
}

/// One closed line, begun at each of its points.
std::vector<Line> BegunAnywhere(Line closed) {
  std::vector<Line> lines;
  for (std::size_t i = 1; i < closed.size(); ++i) {
    lines.push_back(closed);
    closed.pop_back();
    std::rotate(closed.begin(), closed.begin() + 1, closed.end());
    closed = Closed(closed);
  }
  return lines;
}

TEST_F(OneLine, SlitLeadsNorthToTheNextLineWhereverLinesBegin) {
  // A bay, another hole and a bay again lie north of the hole, whose tip is west of theirs.
  const Line shell =
      Closed({{0, 0}, {0, 30}, {10, 30}, {10, 25}, {2, 25}, {2, 22}, {11, 22}, {11, 0}});
  const Line low = Closed({{4, 4}, {5, 6}, {7, 4}});
  const Line high = Closed({{4, 10}, {6, 12}, {8, 10}});
  for (const Line& around : BegunAnywhere(shell)) {
    for (const Line& one : BegunAnywhere(low)) {
      const Line line = OneLineAround(geos_, geos_.Inside(Piece{around, {one}}));
      EXPECT_TRUE(Has(line, {5 - kHalf, 22}) && Has(line, {5 + kHalf, 22}));
      EXPECT_FALSE(Has(line, {5 - kHalf, 25}));
      for (const Line& other : BegunAnywhere(high)) {
        const Line both = OneLineAround(geos_, geos_.Inside(Piece{around, {one, other}}));
        EXPECT_TRUE(Has(both, {5 - kHalf, 10}) && Has(both, {5 + kHalf, 10}));
        EXPECT_FALSE(Has(both, {5 - kHalf, 22}));
        EXPECT_TRUE(Has(both, {6 - kHalf, 22}) && Has(both, {6 + kHalf, 22}));
      }
    }
  }
}

TEST_F(OneLine, HoleThatTouchesTheLineAroundItIsOpenedThere) {
  ExpectAround({{Rectangle(0, 0, 10, 10), {Closed({{5, 10}, {3, 6}, {7, 6}})}}});
  ExpectAround({{Rectangle(0, 0, 10, 10), {Closed({{5, 0}, {7, 4}, {3, 4}})}}});
}

TEST_F(OneLine, PieceInTheHoleOfAnotherIsJoined) {
  ExpectAround(
      {{Rectangle(0, 0, 20, 20), {Rectangle(4, 4, 16, 16)}}, {Rectangle(8, 8, 12, 12), {}}});
}

TEST_F(OneLine, ThreePiecesThatTouchInOnePointAreJoined) {
  ExpectAround({{Closed({{0, 0}, {-3, 10}, {3, 10}}), {}},
                {Closed({{0, 0}, {10, 0}, {8, -5}}), {}},
                {Closed({{0, 0}, {-8, -5}, {-10, 0}}), {}}});
}

TEST_F(OneLine, AnyPiecesThatTouchInPointsAreJoined) {
  // Cells of a chequered field, each there or not.
  sample::Randomness chance(11);
  for (int run = 0; run < 100; ++run) {
    std::vector<Piece> cells;
    for (int cell = 0; cell < 36; ++cell) {
      const double east = cell % 6;
      const double north = cell / 6;
      if (!chance.Chance(0.55)) continue;
      cells.push_back({Rectangle(east, north, east + 1, north + 1), {}});
    }
    ExpectAround(cells);
    ASSERT_FALSE(HasFailure()) << run;
  }
}

TEST_F(OneLine, TrifleIsLeftOutOrFilled) {
  // A thousandth of a hundredth of the ground each.
  const Line line = ExpectAround({{Rectangle(0, 0, 10, 10), {Rectangle(4, 4, 4.03, 4.03)}},
                                  {Rectangle(12, 0, 12.03, 0.03), {}}});
  EXPECT_EQ(line.size(), 5U);
  EXPECT_DOUBLE_EQ(test::SquareMetresIn(line), 100);
}

TEST_F(OneLine, TrifleIsNoMoreThanATwoThousandthOfTheGround) {
  const auto pieces = [](double metres) {
    return std::vector<Piece>{{Rectangle(0, 0, 1999, 1), {}}, {Rectangle(0, 3, metres, 4), {}}};
  };
  EXPECT_EQ(ExpectAround(pieces(1)).size(), 5U);
  EXPECT_GT(ExpectAround(pieces(1.01)).size(), 5U);
}

TEST_F(OneLine, TriflesThatAreMuchTogetherStay) {
  // Twenty times a hundredth of a hundredth.
  std::vector<Piece> pieces{{Rectangle(0, 0, 10, 10), {}}};
  for (int i = 0; i < 20; ++i) {
    pieces.push_back({Rectangle(0.5 * i, 11, 0.5 * i + 0.1, 11.1), {}});
  }
  EXPECT_GT(test::SquareMetresIn(ExpectAround(pieces)), 100.1);
}

TEST_F(OneLine, OfNothingIsEmpty) {
  const Geos::Area square = geos_.Inside(Rectangle(0, 0, 10, 10));
  EXPECT_TRUE(OneLineAround(geos_, geos_.Difference(square, square)).empty());
}

TEST_F(OneLine, HullIsAMillimetreWiderThanBoomsInOneLine) {
  const std::vector<Boom> booms{test::Across(0, 0, 10), test::Across(0, 5, 15)};
  const Line hull = HullAround(geos_, booms);
  EXPECT_NE(test::ClearanceOf(hull), Clearance::kNone);
  EXPECT_LT(SignedArea(hull), 0);
  EXPECT_NEAR(test::SquareMetresIn(hull), 15 * 0.002, 1e-5);
}

TEST_F(OneLine, HullOfOnePlaceIsALine) {
  const std::vector<Boom> booms{test::Across(0, 3, 3)};
  EXPECT_NE(test::ClearanceOf(HullAround(geos_, booms)), Clearance::kNone);
}

}  // namespace
}  // namespace kestrin::ground
