#include "export/ground/gridAreas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/export/ground/drawnLines.h"

namespace kestrin::ground {
namespace {

using test::Closed;
using test::Rectangle;

/// On a grid of quarter metres.
class TheGridAreas : public testing::Test {
 protected:
  double SquareMetresInside(const Line& points, Clearance least) {
    const Geos::Area area = areas_.Inside(points, least);
    return area ? geos_.SquareMetres(area) : -1;
  }

  Geos geos_;
  GridAreas areas_{geos_, 4};
};

TEST_F(TheGridAreas, MovesAPointToTheNextOfTheGrid) {
  EXPECT_EQ(areas_.OnGrid({1.12, -1.12}), (geo::UtmPoint{1, -1}));
  EXPECT_EQ(areas_.OnGrid({1.13, -1.13}), (geo::UtmPoint{1.25, -1.25}));
  EXPECT_EQ(areas_.OnGrid({500000.6, 4500000.4}), (geo::UtmPoint{500000.5, 4500000.5}));
}

TEST_F(TheGridAreas, TellsTheAreaInsideALineOnTheGrid) {
  for (const Clearance least : {Clearance::kTight, Clearance::kWide}) {
    EXPECT_EQ(SquareMetresInside({{0.1, 0.1}, {0.1, 3.9}, {3.9, 3.9}, {3.9, 0.1}}, least), 16);
    // Closed, by a point and by several that come to lie where the first does.
    EXPECT_EQ(SquareMetresInside(Rectangle(0.1, 0.1, 3.9, 3.9), least), 16);
    EXPECT_EQ(SquareMetresInside({{0, 0}, {0, 4}, {4, 4}, {4, 0}, {0.1, 0.1}, {-0.1, 0.1}, {0, 0}},
                                 least),
              16);
  }
}

TEST_F(TheGridAreas, HasNoneInsideALineThatTouchesItselfThere) {
  for (const Clearance least : {Clearance::kTight, Clearance::kWide}) {
    EXPECT_EQ(SquareMetresInside({{0, 0}, {4, 4}, {0, 4}, {4, 0}}, least), -1);
    // Apart by more than a tenth of a metre, and one on the grid.
    EXPECT_EQ(
        SquareMetresInside({{0, 0}, {0, 4}, {4, 4}, {4, 2.1}, {0.12, 2}, {4, 1.9}, {4, 0}}, least),
        -1);
    EXPECT_EQ(SquareMetresInside({{0, 0}, {0, 0.1}, {0.1, 0}}, least), -1) << "in one point";
  }
}

TEST_F(TheGridAreas, AsksHowFarALineKeepsClearByItsLongestSide) {
  // Half way up its one long side a spit comes as near as a quarter metre: in another frame sides
  // of 1,600 metres rise higher, and those half as long do not.
  const auto shore = [](double metres, std::size_t first) {
    const double middle = std::floor(metres / 2);
    Line line{{0, 0},         {0, metres}, {4, metres}, {4, middle + 1}, {0.25, middle + 1},
              {0.25, middle}, {4, middle}, {4, 0}};
    std::rotate(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(first), line.end());
    return line;
  };
  for (std::size_t first = 0; first < 8; ++first) {
    EXPECT_GT(SquareMetresInside(shore(1500, first), Clearance::kWide), 0) << first;
    EXPECT_GT(SquareMetresInside(shore(1600, first), Clearance::kTight), 0) << first;
    EXPECT_EQ(SquareMetresInside(shore(1600, first), Clearance::kWide), -1) << first;
  }
}

TEST_F(TheGridAreas, UnitesCutsAndIntersects) {
  std::vector<Geos::Area> two;
  two.push_back(geos_.Inside(Rectangle(0, 0, 4, 4)));
  two.push_back(geos_.Inside(Rectangle(2, 2, 6, 6)));
  const Geos::Area common = areas_.Common(two[0], two[1]);
  EXPECT_EQ(geos_.SquareMetres(common), 4);
  const Geos::Area both = areas_.Union(std::move(two));
  EXPECT_EQ(geos_.SquareMetres(both), 28);
  EXPECT_EQ(geos_.SquareMetres(areas_.Clipped(both, {3.5, 1.5, 5.5, 3.5})), 1 + 3 - 0.75);
}

TEST_F(TheGridAreas, WhatTwoHaveInCommonHasItsPointsOnTheGrid) {
  const Geos::Area slope = geos_.Inside(Closed({{0, 0}, {0, 4}, {3, 0}}));
  const auto pieces = geos_.Pieces(areas_.Common(slope, geos_.Inside(Rectangle(0, 0, 1, 4))));
  ASSERT_EQ(pieces.size(), 1U);
  // The slope crosses the other's side two thirds of a metre beyond two metres.
  EXPECT_EQ(std::ranges::count(pieces[0].shell, geo::UtmPoint{1, 2.75}), 1);
  for (const geo::UtmPoint& point : pieces[0].shell) EXPECT_EQ(areas_.OnGrid(point), point);
}

}  // namespace
}  // namespace kestrin::ground
