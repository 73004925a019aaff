#include "export/ground/strip.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "tests/export/ground/drawnLines.h"

namespace kestrin::ground {
namespace {

using test::Across;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<double> SquareMetresOf(const Strip& strip) {
  std::vector<double> all;
  for (const Patch& patch : strip.Patches()) all.push_back(patch.squareMetres);
  return all;
}

TEST(Strip, IsTheQuadrilateralBetweenTwoBooms) {
  const Strip strip(Across(0), Across(3));
  ASSERT_THAT(SquareMetresOf(strip), ElementsAre(30));
  EXPECT_THAT(strip.Patches()[0].Line(),
              ElementsAre(geo::UtmPoint{-5, 0}, geo::UtmPoint{-5, 3}, geo::UtmPoint{5, 3},
                          geo::UtmPoint{5, 0}, geo::UtmPoint{-5, 0}));
}

TEST(Strip, BackwardIsNegative) {
  EXPECT_THAT(SquareMetresOf(Strip(Across(0), Across(-3))), ElementsAre(-30));
}

TEST(Strip, BoomsThatCrossLeaveATriangleToEitherSide) {
  // On the spot, a right angle to the right: the left end goes forward, the right one back.
  const Strip strip({{-5, 0}, {5, 0}}, {{0, 5}, {0, -5}});
  ASSERT_THAT(SquareMetresOf(strip), ElementsAre(12.5, -12.5));
  EXPECT_THAT(strip.Patches()[0].Line(), ElementsAre(geo::UtmPoint{-5, 0}, geo::UtmPoint{0, 5},
                                                     geo::UtmPoint{0, 0}, geo::UtmPoint{-5, 0}));
}

TEST(Strip, EndsWhoseWaysCrossLeaveATriangleAtEitherBoom) {
  // Ten metres on it looks the other way.
  EXPECT_THAT(SquareMetresOf(Strip(Across(0), Across(10, 5, -5))), ElementsAre(25, -25));
}

TEST(Strip, BoomThatTurnsAboutItsEndSweepsATriangle) {
  EXPECT_THAT(SquareMetresOf(Strip({{-10, 0}, {0, 0}}, {{0, 10}, {0, 0}})), ElementsAre(50));
  EXPECT_THAT(SquareMetresOf(Strip({{0, 0}, {10, 0}}, {{0, 0}, {0, -10}})), ElementsAre(-50));
}

TEST(Strip, WithoutGroundHasNoPatches) {
  EXPECT_THAT(SquareMetresOf(Strip(Across(0), Across(0))), IsEmpty());
  // Along the boom itself.
  EXPECT_THAT(SquareMetresOf(Strip(Across(0), Across(0, -3, 7))), IsEmpty());
}

template <class From>
concept LendsPatches = requires(From&& from) {
  std::forward<From>(from).Patches();
};
template <class From>
concept LendsItsLine = requires(From&& from) {
  std::forward<From>(from).Line();
};

TEST(Strip, LendsNothingThatOutlivesIt) {
  static_assert(LendsPatches<const Strip&> && LendsItsLine<const Patch&>);
  static_assert(!LendsPatches<Strip> && !LendsPatches<const Strip>);
  static_assert(!LendsItsLine<Patch> && !LendsItsLine<const Patch>);
}

}  // namespace
}  // namespace kestrin::ground
