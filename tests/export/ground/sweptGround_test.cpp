#include "export/ground/sweptGround.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/export/ground/drawnLines.h"
#include "tests/support/recordingHost.h"
#include "tools/sample/randomness.h"

namespace kestrin::ground {
namespace {

class TheSweptGround : public testing::Test {
 protected:
  Geos::Area Of(const std::vector<Boom>& booms) {
    return SweptGround(geos_, booms, test::SweepOf(booms), 0, yield_);
  }

  /// How far it is from the union of all strips, one by one.
  double WrongIn(const std::vector<Boom>& booms) {
    std::vector<Geos::Area> strips;
    for (std::size_t i = 0; i + 1 < booms.size(); ++i) {
      const Strip strip(booms[i], booms[i + 1]);
      for (const Patch& patch : strip.Patches()) strips.push_back(geos_.Inside(patch.Line()));
    }
    const Geos::Area all = geos_.UnionOnGrid(geos_.Collection(std::move(strips)), 1e-6);
    return test::Between(geos_, Of(booms), all);
  }

  Geos geos_;
  test::RecordingHost host_;
  base::LoopYield yield_{[this] { host_.Yield(); }};
};

TEST_F(TheSweptGround, OfAStraightWayIsItsRectangle) {
  EXPECT_DOUBLE_EQ(geos_.SquareMetres(Of(test::BoomsAt({0, 10, 20}))), 200);
  EXPECT_DOUBLE_EQ(geos_.SquareMetres(Of(test::BoomsAt({0, -10, -20}))), 200);
}

TEST_F(TheSweptGround, ForthAndBackIsCountedOnce) {
  EXPECT_NEAR(geos_.SquareMetres(Of(test::BoomsAt({0, 10, 20, 10, 0}))), 200, 1e-3);
  EXPECT_NEAR(geos_.SquareMetres(Of(test::BoomsAt({0, 10, 20, 10, 0, -7}))), 270, 1e-3);
}

TEST_F(TheSweptGround, OnTheSpotIsTwoTriangles) {
  EXPECT_NEAR(geos_.SquareMetres(Of({{{-5, 0}, {5, 0}}, {{0, 5}, {0, -5}}})), 25, 1e-3);
}

TEST_F(TheSweptGround, OfMoreRowsThanGoIntoACallIsWhole) {
  std::vector<double> northings;
  for (int i = 0; i <= 5000; ++i) northings.push_back(0.1 * i);
  EXPECT_NEAR(geos_.SquareMetres(Of(test::BoomsAt(northings))), 5000, 1e-3);
  EXPECT_EQ(geos_.Pieces(Of(test::BoomsAt(northings))).size(), 1U);
}

TEST_F(TheSweptGround, OfWildWaysIsTheUnionOfTheirStrips) {
  sample::Randomness chance(3);
  for (int run = 0; run < 200; ++run) {
    std::vector<Boom> booms;
    for (int i = 0; i < 8; ++i) {
      const geo::UtmPoint at{20 * chance.Uniform(), 20 * chance.Uniform()};
      const double yaw = 7 * chance.Uniform();
      const double east = 4 * std::cos(yaw);
      const double north = 4 * std::sin(yaw);
      booms.push_back(
          {{at.easting - east, at.northing + north}, {at.easting + east, at.northing - north}});
    }
    EXPECT_LT(WrongIn(booms), 0.005 * test::SweepOf(booms).total) << run;
  }
}

TEST_F(TheSweptGround, YieldsAndLetsACancelPass) {
  host_.cancelAt = 1;
  EXPECT_THROW(Of(test::BoomsAt({0, 10, 20})), base::RunCancelled);
}

}  // namespace
}  // namespace kestrin::ground
