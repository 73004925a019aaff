#include "geo/modProj4.h"

#include <gtest/gtest.h>

namespace kestrin {
namespace {

TEST(UtmZoneOf, FollowsTheLongitude) { EXPECT_EQ(UtmZoneOf(40, -97.5), 14); }

}  // namespace
}  // namespace kestrin
