#include <gtest/gtest.h>

#include "tests/support/boomPeriodQuery.h"

namespace kestrin::boom {
namespace {

using test::BoomPeriodEpochs;

std::string BoomText(const std::string& clause) {
  return "Select gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type, boomStatusBitfield From "
         "GpsDataTable Where type & 8192 And (" +
         clause + ") Order By gpsWeek, gpsMsec";
}

TEST(BoomTimeClause, TheLastPeriodHasNoEnd) {
  EXPECT_EQ(BoomPeriodEpochs::Text({1042, 3000}),
            BoomText("gpsWeek > 1042 Or (gpsWeek = 1042 And gpsMsec >= 3000)"));
}

TEST(BoomTimeClause, APeriodWithinAWeekIsOneGroup) {
  EXPECT_EQ(BoomPeriodEpochs::Text({1042, 3000}, {1042, 4000}),
            BoomText("(gpsWeek = 1042 And gpsMsec >= 3000 And gpsMsec < 4000)"));
}

TEST(BoomTimeClause, APeriodIntoALaterWeekKeepsTheEndBoundInItsFirstWeek) {
  EXPECT_EQ(BoomPeriodEpochs::Text({1042, 3000}, {1044, 50}),
            BoomText("(gpsWeek = 1042 And gpsMsec >= 3000 And gpsMsec < 50) Or (gpsWeek > 1042 "
                     "And gpsWeek < 1044) Or (gpsWeek > 1042 And gpsWeek = 1044 And gpsMsec < "
                     "50)"));
}

TEST(BoomTimeClause, APeriodThatEndsInAnEarlierWeekIsOneGroup) {
  EXPECT_EQ(BoomPeriodEpochs::Text({1042, 3000}, {1041, 50}),
            BoomText("(gpsWeek = 1042 And gpsMsec >= 3000 And gpsMsec < 50)"));
}

TEST(BoomTimeClause, NumbersArePlainDecimals) {
  EXPECT_EQ(BoomPeriodEpochs::Text({-1, 604799999}),
            BoomText("gpsWeek > -1 Or (gpsWeek = -1 And gpsMsec >= 604799999)"));
}

}  // namespace
}  // namespace kestrin::boom
