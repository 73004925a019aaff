#include "geo/heading.h"

#include <gtest/gtest.h>

#include <numbers>

namespace kestrin::geo {
namespace {

TEST(Heading, NorthHasEastToItsRight) {
  const Heading north(0);
  EXPECT_EQ(north.RightOf({10, 20}, 3), (UtmPoint{13, 20}));
  EXPECT_EQ(north.LeftOf({10, 20}, 3), (UtmPoint{7, 20}));
}

TEST(Heading, TurnsClockwise) {
  const Heading east(std::numbers::pi / 2);
  EXPECT_NEAR(east.RightOf({10, 20}, 3).easting, 10, 1e-12);
  EXPECT_NEAR(east.RightOf({10, 20}, 3).northing, 17, 1e-12);
  EXPECT_NEAR(east.LeftOf({10, 20}, 3).northing, 23, 1e-12);
}

}  // namespace
}  // namespace kestrin::geo
