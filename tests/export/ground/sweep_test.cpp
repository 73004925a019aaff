#include "export/ground/sweep.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/export/ground/drawnLines.h"

namespace kestrin::ground {
namespace {

using test::Across;
using test::BoomsAt;
using test::SweepOf;
using testing::ElementsAre;
using testing::IsEmpty;

/// Metre by metre from one northing to the next.
std::vector<Boom> Driven(const std::vector<int>& northings) {
  std::vector<double> all{static_cast<double>(northings.front())};
  for (std::size_t i = 1; i < northings.size(); ++i) {
    const int step = northings[i] > northings[i - 1] ? 1 : -1;
    for (int at = northings[i - 1]; at != northings[i]; at += step) all.push_back(at + step);
  }
  return BoomsAt(all);
}

/// The square metres of what is hidden, whichever way the vehicle looks and wherever it is.
std::vector<double> HiddenIn(const std::vector<Boom>& booms) {
  std::vector<double> first;
  for (int quarters = 0; quarters < 4; ++quarters) {
    for (const geo::UtmPoint& from : {geo::UtmPoint{0, 0}, geo::UtmPoint{16384, -65536}}) {
      std::vector<Boom> moved = booms;
      for (Boom& boom : moved) {
        for (geo::UtmPoint* end : {&boom.left, &boom.right}) {
          *end = QuarterTurned(*end, quarters);
          *end = {end->easting + from.easting, end->northing + from.northing};
        }
      }
      std::vector<double> squareMetres;
      for (const Patch& patch : SweepOf(moved).hidden) squareMetres.push_back(patch.squareMetres);
      if (quarters == 0 && from.easting == 0) first = squareMetres;
      EXPECT_EQ(squareMetres, first) << quarters << " quarters, from " << from.easting;
    }
  }
  return first;
}

TEST(Sweep, ForwardIsNetAndTotalAndHidesNothing) {
  const auto booms = Driven({0, 30});
  const Sweep sweep = SweepOf(booms);
  EXPECT_DOUBLE_EQ(sweep.net, 300);
  EXPECT_DOUBLE_EQ(sweep.total, 300);
  EXPECT_DOUBLE_EQ(sweep.length, 60);
  EXPECT_FALSE(sweep.isBackward);
  EXPECT_THAT(sweep.hidden, IsEmpty());
}

TEST(Sweep, WhatWasSweptBackwardIsTakenFromTheNet) {
  const auto booms = Driven({0, 30, 20});
  const Sweep sweep = SweepOf(booms);
  EXPECT_DOUBLE_EQ(sweep.net, 200);
  EXPECT_DOUBLE_EQ(sweep.total, 400);
  EXPECT_FALSE(sweep.isBackward);
}

TEST(Sweep, ForwardIsTheWayOfMostGround) {
  const auto booms = Driven({0, -30, -20});
  const Sweep sweep = SweepOf(booms);
  EXPECT_TRUE(sweep.isBackward);
  EXPECT_DOUBLE_EQ(sweep.net, 200);
  EXPECT_DOUBLE_EQ(sweep.total, 400);
  EXPECT_EQ(sweep.hidden.size(), 10U);
}

TEST(Sweep, RetracedGroundIsHidden) {
  EXPECT_THAT(HiddenIn(Driven({0, 3, 0})), ElementsAre(-10, -10, -10));
  EXPECT_THAT(HiddenIn(BoomsAt({0, 3, 0})), ElementsAre(-30));
}

TEST(Sweep, OfManyRowsOnlyThoseBackwardOnesAreHiddenThatNothingElseShows) {
  // A metre back on a way of a thousand is no large patch; on again over it shows it.
  EXPECT_THAT(HiddenIn(Driven({0, 500, 499, 1000})), IsEmpty());
  EXPECT_THAT(HiddenIn(Driven({0, 1000, 999})), ElementsAre(-10));
  EXPECT_THAT(HiddenIn(Driven({0, -1, 1000})), ElementsAre(-10));
}

TEST(Sweep, JitterThatComesBackHidesNothing) {
  std::vector<double> northings;
  for (int i = 0; i < 200; ++i) northings.push_back(i);
  northings.insert(northings.end(), {199.01, 199.0, 199.02, 199.01, 199.015, 199.0, 199.03});
  for (int i = 200; i < 400; ++i) northings.push_back(i);
  EXPECT_THAT(HiddenIn(BoomsAt(northings)), IsEmpty());
}

TEST(Sweep, RowLevelWithWhereAPatchIsLookedAtCountsOnce) {
  // A patch from 200 back to 199.5 is looked at an eighth of a metre from either.
  const auto driven = [](const std::vector<double>& turn, int on) {
    std::vector<double> northings;
    for (int i = 0; i < 199; ++i) northings.push_back(i);
    northings.insert(northings.end(), turn.begin(), turn.end());
    for (int i = 0; i < on; ++i) northings.push_back(201 + i);
    return BoomsAt(northings);
  };
  EXPECT_THAT(HiddenIn(driven({199.5, 200, 199.5, 199.625, 199.875}, 100)), IsEmpty());
  EXPECT_THAT(HiddenIn(driven({199.5, 199.625, 199.875, 200, 199.5}, 0)), ElementsAre(-5));
}

TEST(Sweep, MirroredWayIsBackwardAndHidesTheSame) {
  auto booms = Driven({0, 1000, 999});
  for (Boom& boom : booms) std::swap(boom.left, boom.right);
  EXPECT_TRUE(SweepOf(booms).isBackward);
  EXPECT_THAT(HiddenIn(booms), ElementsAre(10));
  booms = Driven({0, 500, 499, 1000});
  for (Boom& boom : booms) std::swap(boom.left, boom.right);
  EXPECT_THAT(HiddenIn(booms), IsEmpty());
}

TEST(Sweep, OfOneBoomOrNoneIsNothing) {
  const auto booms = BoomsAt({0});
  EXPECT_EQ(SweepOf(booms).total, 0);
  EXPECT_EQ(SweepOf({}).length, 0);
}

TEST(LineAround, LeadsUpTheLeftEndsAndDownTheRightOnes) {
  const auto booms = BoomsAt({0, 1});
  EXPECT_EQ(LineAround(booms), test::Rectangle(-5, 0, 5, 1));
  EXPECT_THAT(LineAround({}), IsEmpty());
}

}  // namespace
}  // namespace kestrin::ground
