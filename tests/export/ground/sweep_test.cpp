#include "export/ground/sweep.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/export/ground/drawnLines.h"

namespace kestrin::ground {
namespace {

using test::Across;
using test::BoomsAt;
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

std::vector<double> HiddenIn(const std::vector<Boom>& booms) {
  std::vector<double> squareMetres;
  for (const Patch& patch : Sweep(booms).hidden) squareMetres.push_back(patch.squareMetres);
  return squareMetres;
}

TEST(Sweep, ForwardIsNetAndTotalAndHidesNothing) {
  const auto booms = Driven({0, 30});
  const Sweep sweep(booms);
  EXPECT_DOUBLE_EQ(sweep.net, 300);
  EXPECT_DOUBLE_EQ(sweep.total, 300);
  EXPECT_DOUBLE_EQ(sweep.length, 60);
  EXPECT_FALSE(sweep.isBackward);
  EXPECT_THAT(sweep.hidden, IsEmpty());
}

TEST(Sweep, WhatWasSweptBackwardIsTakenFromTheNet) {
  const auto booms = Driven({0, 30, 20});
  const Sweep sweep(booms);
  EXPECT_DOUBLE_EQ(sweep.net, 200);
  EXPECT_DOUBLE_EQ(sweep.total, 400);
  EXPECT_FALSE(sweep.isBackward);
}

TEST(Sweep, ForwardIsTheWayOfMostGround) {
  const auto booms = Driven({0, -30, -20});
  const Sweep sweep(booms);
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

TEST(Sweep, MirroredWayIsBackwardAndHidesTheSame) {
  auto booms = Driven({0, 1000, 999});
  for (Boom& boom : booms) std::swap(boom.left, boom.right);
  EXPECT_TRUE(Sweep(booms).isBackward);
  EXPECT_THAT(HiddenIn(booms), ElementsAre(10));
  booms = Driven({0, 500, 499, 1000});
  for (Boom& boom : booms) std::swap(boom.left, boom.right);
  EXPECT_THAT(HiddenIn(booms), IsEmpty());
}

TEST(Sweep, OfOneBoomOrNoneIsNothing) {
  const auto booms = BoomsAt({0});
  EXPECT_EQ(Sweep(booms).total, 0);
  EXPECT_EQ(Sweep({}).length, 0);
}

TEST(LineAround, LeadsUpTheLeftEndsAndDownTheRightOnes) {
  const auto booms = BoomsAt({0, 1});
  EXPECT_EQ(LineAround(booms), test::Rectangle(-5, 0, 5, 1));
  EXPECT_THAT(LineAround({}), IsEmpty());
}

}  // namespace
}  // namespace kestrin::ground
