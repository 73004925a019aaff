#include "geo/weekFirstOffsets.h"

#include <gtest/gtest.h>

#include "geo/utmProjection.h"

namespace kestrin::geo {
namespace {

jobstore::ReferenceRow At(std::int32_t week, std::int32_t msec, double latitude,
                          double longitude = -97.5) {
  return {{week, msec}, latitude, longitude};
}

/// Latitude of the location in force.
double InForce(WeekFirstOffsets& offsets, std::int32_t week, std::int32_t msec) {
  offsets.AdvanceTo({week, msec});
  return offsets.Reference().latitude;
}

TEST(WeekFirstOffsets, FirstLocationIsInForceBeforeItsTime) {
  WeekFirstOffsets offsets({At(1400, 500, 47), At(1400, 900, 48)});
  EXPECT_EQ(InForce(offsets, 1399, 0), 47);
  EXPECT_EQ(InForce(offsets, 1400, 100), 47);
}

TEST(WeekFirstOffsets, LocationOfTheSameWeekAppliesFromItsMillisecondOn) {
  WeekFirstOffsets offsets({At(1400, 500, 47), At(1400, 900, 48)});
  EXPECT_EQ(InForce(offsets, 1400, 899), 47);
  EXPECT_EQ(InForce(offsets, 1400, 900), 48);
}

TEST(WeekFirstOffsets, FirstEpochOfALaterWeekTakesLaterChangesOfItsWeekEarly) {
  WeekFirstOffsets offsets({At(1400, 500, 47), At(1401, 800, 48), At(1401, 900, 49)});
  EXPECT_EQ(InForce(offsets, 1401, 100), 49);
}

TEST(WeekFirstOffsets, ChangeOfAWeekNotReachedWaits) {
  WeekFirstOffsets offsets({At(1400, 500, 47), At(1402, 0, 48)});
  EXPECT_EQ(InForce(offsets, 1401, 604799999), 47);
  EXPECT_EQ(InForce(offsets, 1402, 0), 48);
}

TEST(WeekFirstOffsets, WithinTheWeekOfTheLocationInForceMillisecondsCount) {
  // A change early in the week makes that week the one in force.
  WeekFirstOffsets offsets({At(1400, 500, 47), At(1401, 10, 48), At(1402, 10, 49)});
  EXPECT_EQ(InForce(offsets, 1401, 20), 48);
  EXPECT_EQ(InForce(offsets, 1402, 5), 49);
}

TEST(WeekFirstOffsets, SeveralChangesBetweenTwoEpochsLeaveTheLast) {
  WeekFirstOffsets offsets({At(1400, 500, 47), At(1400, 600, 48), At(1400, 700, 49)});
  EXPECT_EQ(InForce(offsets, 1400, 800), 49);
}

TEST(WeekFirstOffsets, EpochOfAnEarlierWeekThanTheLocationInForceChangesNothing) {
  WeekFirstOffsets offsets({At(1401, 500, 47), At(1400, 900, 48)});
  EXPECT_EQ(InForce(offsets, 1400, 900), 47);
}

TEST(WeekFirstOffsets, LaterLocationIsProjectedInTheFirstOnesZone) {
  WeekFirstOffsets offsets({At(1400, 500, 47, -96.5), At(1400, 900, 47, -95.5)});
  offsets.AdvanceTo({1400, 900});
  EXPECT_EQ(offsets.Plane().At(0, 0), UtmProjection(14).ToUtm({-95.5, 47}));
}

}  // namespace
}  // namespace kestrin::geo
