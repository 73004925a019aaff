#include "export/ground/geos.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/export/ground/drawnLines.h"

namespace kestrin::ground {
namespace {

using test::Closed;
using test::Rectangle;
using testing::HasSubstr;

class TheLibrary : public testing::Test {
 protected:
  double WoundAbout(const Line& line) { return geos_.SquareMetres(geos_.WoundAbout(line)); }

  Geos::Area Union(const std::vector<Line>& lines) {
    std::vector<Geos::Area> areas;
    for (const Line& line : lines) areas.push_back(geos_.Inside(line));
    return geos_.Union(std::move(areas));
  }

  Geos geos_;
};

TEST_F(TheLibrary, TellsTheAreaInsideALineAndAPiece) {
  EXPECT_EQ(geos_.SquareMetres(geos_.Inside(Rectangle(0, 0, 4, 3))), 12);
  EXPECT_EQ(geos_.SquareMetres(geos_.Inside(Piece{Rectangle(0, 0, 4, 3), {Rectangle(1, 1, 2, 2)}})),
            11);
}

TEST_F(TheLibrary, SaysWhatItCannotDoAndGoesOn) {
  const Line open{{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  try {
    geos_.Inside(open);
    FAIL() << "an open line has no inside";
  } catch (const GeometryError& error) {
    EXPECT_THAT(error.what(), HasSubstr("not form a closed linestring"));
  }
  EXPECT_THROW(geos_.Inside(Piece{Rectangle(0, 0, 4, 3), {open}}), GeometryError);
  EXPECT_EQ(geos_.SquareMetres(geos_.Inside(Closed(open))), 1);
}

TEST_F(TheLibrary, KeepsWhatALineWindsAboutClockwise) {
  EXPECT_DOUBLE_EQ(WoundAbout(Rectangle(0, 0, 4, 3)), 12);
  // Twice about the square in the middle.
  EXPECT_DOUBLE_EQ(
      WoundAbout(Closed({{0, 0}, {0, 3}, {3, 3}, {3, 1}, {1, 1}, {1, 4}, {4, 4}, {4, 0}})), 15);
  // A figure eight: only its upper half runs clockwise.
  EXPECT_DOUBLE_EQ(WoundAbout(Closed({{0, 0}, {4, 4}, {0, 4}, {4, 0}})), 4);
}

/// Twenty metres square and clockwise, with a loop beyond some sides that runs the other
/// way round.
Line WithOuterLoops(int sides) {
  Line line;
  for (int side = 0; side < 4; ++side) {
    Line part{{-10, 10}};
    if (side < sides) part.insert(part.end(), {{4, 10}, {6, 12}, {4, 12}, {6, 10}});
    for (geo::UtmPoint point : part) {
      // From the northern side clockwise to the western one.
      for (int i = 0; i < side; ++i) point = {point.northing, -point.easting};
      line.push_back(point);
    }
  }
  return Closed(line);
}

TEST_F(TheLibrary, TurnsALineUntilItsNorthernmostPointTellsItsWay) {
  // Each loop has a square metre, and its neck another, which the line winds about.
  for (int sides = 0; sides <= 3; ++sides) {
    const Geos::Area area = geos_.WoundAbout(WithOuterLoops(sides));
    ASSERT_NE(area, nullptr) << sides;
    EXPECT_DOUBLE_EQ(geos_.SquareMetres(area), 400 + sides);
    // Turned back to where it was, the northern neck east of the middle.
    const Geos::Area north = geos_.Inside(Rectangle(4, 10, 6, 11));
    const double elsewhere = geos_.SquareMetres(geos_.Difference(north, area));
    EXPECT_NEAR(elsewhere, sides > 0 ? 1 : 2, 1e-9) << sides;
  }
}

TEST_F(TheLibrary, GivesNothingWhereNoOutermostPointTellsTheWay) {
  EXPECT_EQ(geos_.WoundAbout(WithOuterLoops(4)), nullptr);
  EXPECT_EQ(geos_.WoundAbout(Closed({{0, 0}, {4, 0}, {4, 3}, {0, 3}})), nullptr);
}

TEST_F(TheLibrary, UnitesWhatNearlyCoincides) {
  for (const double off : {0.0, 1e-15, -1e-15, 1e-9, -1e-9}) {
    const auto pieces = geos_.Pieces(Union({Rectangle(0, 0, 1, 1), Rectangle(1 + off, off, 2, 1)}));
    ASSERT_EQ(pieces.size(), 1U) << off;
    EXPECT_TRUE(pieces[0].holes.empty()) << off;
    EXPECT_NEAR(test::SquareMetresIn(pieces[0].shell), 2, 1e-6) << off;
  }
}

TEST_F(TheLibrary, UnitesManyThatNearlyCoincide) {
  std::vector<Line> lines;
  for (int i = 0; i < 600; ++i) {
    const double off = i % 2 == 0 ? 1e-15 : -1e-9;
    lines.push_back(Rectangle(i + off, off, i + 1, 1));
    lines.push_back(Rectangle(i + 0.5, 0, i + 1.5 + off, 1));
  }
  const auto pieces = geos_.Pieces(Union(lines));
  ASSERT_EQ(pieces.size(), 1U);
  EXPECT_TRUE(pieces[0].holes.empty());
  EXPECT_NEAR(test::SquareMetresIn(pieces[0].shell), 600.5, 1e-3);
}

TEST_F(TheLibrary, GivesPiecesAsShapefilesHaveThem) {
  const auto pieces = geos_.Pieces(geos_.Difference(
      Union({Rectangle(0, 0, 4, 4), Rectangle(5, 0, 6, 1)}), geos_.Inside(Rectangle(1, 1, 2, 2))));
  ASSERT_EQ(pieces.size(), 2U);
  std::size_t holes = 0;
  for (const Piece& piece : pieces) {
    EXPECT_LT(SignedArea(piece.shell), 0);
    for (const Line& hole : piece.holes) EXPECT_GT(SignedArea(hole), 0);
    holes += piece.holes.size();
  }
  EXPECT_EQ(holes, 1U);
}

TEST_F(TheLibrary, TurnsTheLinesOfPiecesThatRunTheOtherWay) {
  Line shell = Rectangle(0, 0, 4, 4);
  Line hole = Rectangle(1, 1, 2, 2);
  for (int run = 0; run < 4; ++run) {
    const auto pieces = geos_.Pieces(geos_.Inside(Piece{shell, {hole}}));
    ASSERT_EQ(pieces.size(), 1U);
    EXPECT_EQ(SignedArea(pieces[0].shell), -16) << run;
    EXPECT_EQ(SignedArea(pieces[0].holes.at(0)), 1) << run;
    std::ranges::reverse(run % 2 == 0 ? shell : hole);
  }
}

TEST_F(TheLibrary, PutsAConvexLineAboutPoints) {
  const auto around = [&](const Line& points) {
    return geos_.Pieces(geos_.HullOf(points, 1)).at(0).shell;
  };
  // No corner is rounded by more than one cut.
  EXPECT_EQ(around({{0, 0}, {4, 0}, {4, 3}, {1, 1}, {0, 3}}).size(), 4 * 2 + 1U);
  EXPECT_NEAR(test::SquareMetresIn(around({{0, 0}, {4, 0}, {4, 3}, {0, 3}})), 12 + 14 + 2, 1e-9);
}

TEST_F(TheLibrary, LeavesLinesAndPointsOutOfPieces) {
  const Geos::Area line =
      geos_.Own(GEOSIntersection_r(geos_.Handle(), geos_.Inside(Rectangle(0, 0, 1, 1)).get(),
                                   geos_.Inside(Rectangle(1, 0, 2, 1)).get()));
  EXPECT_TRUE(geos_.Pieces(line).empty());
}

TEST_F(TheLibrary, FindsTheShortestWays) {
  std::vector<Geos::Area> others;
  others.push_back(geos_.Inside(Rectangle(5, 0, 6, 1)));
  others.push_back(geos_.Inside(Rectangle(1, 1, 2, 2)));
  const auto ways = geos_.WaysTo(geos_.Inside(Rectangle(0, 0, 1, 1)), others);
  ASSERT_EQ(ways.size(), 2U);
  EXPECT_EQ(ways[0][0].easting, 1);
  EXPECT_EQ(ways[0][1].easting, 5);
  EXPECT_EQ(ways[1][0], (geo::UtmPoint{1, 1}));
  EXPECT_EQ(ways[1][1], (geo::UtmPoint{1, 1}));
}

TEST_F(TheLibrary, KeepsLinesApartOnAGrid) {
  // A bay that is narrower than the grid closes.
  const Line bay = Closed({{0, 0}, {0, 4}, {1, 4}, {1, 1}, {1.001, 1}, {1.001, 4}, {4, 4}, {4, 0}});
  const Geos::Area area = geos_.OnGrid(geos_.Inside(bay), 0.01);
  ASSERT_TRUE(geos_.IsValid(area));
  EXPECT_DOUBLE_EQ(geos_.SquareMetres(area), 16);
}

TEST_F(TheLibrary, MendsAnAreaWhoseLineCrossesItself) {
  const Geos::Area bowTie = geos_.Inside(Closed({{0, 0}, {4, 4}, {0, 4}, {4, 0}}));
  ASSERT_FALSE(geos_.IsValid(bowTie));
  const Geos::Area mended = geos_.Mended(bowTie);
  EXPECT_TRUE(geos_.IsValid(mended));
  EXPECT_DOUBLE_EQ(geos_.SquareMetres(mended), 8);
}

TEST_F(TheLibrary, MendsByTheGroundInsideShellsAndNotInHoles) {
  // What a line winds about twice lies inside, and what lies in two holes outside.
  const Line twice = Closed({{0, 0}, {0, 3}, {3, 3}, {3, 1}, {1, 1}, {1, 4}, {4, 4}, {4, 0}});
  EXPECT_DOUBLE_EQ(geos_.SquareMetres(geos_.Mended(geos_.Inside(twice))), 15);
  const Piece holes{Rectangle(0, 0, 10, 10), {Rectangle(2, 2, 5, 5), Rectangle(4, 4, 7, 7)}};
  EXPECT_DOUBLE_EQ(geos_.SquareMetres(geos_.Mended(geos_.Inside(holes))), 100 - 17);
}

}  // namespace
}  // namespace kestrin::ground
