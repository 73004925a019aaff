#include "geo/timeZone.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>

#include "geo/monthNames.h"

namespace kestrin::geo {
namespace {

/// Minutes that local clocks were ahead of Greenwich at noon of a month's first day.
int MinutesEast(WORD month) {
  SYSTEMTIME now, greenwich{}, local{};
  GetSystemTime(&now);
  greenwich.wYear = now.wYear;
  greenwich.wMonth = month;
  greenwich.wDay = 1;
  greenwich.wHour = 12;
  SystemTimeToTzSpecificLocalTime(nullptr, &greenwich, &local);
  FILETIME from, to;
  SystemTimeToFileTime(&greenwich, &from);
  SystemTimeToFileTime(&local, &to);
  const auto ticks = [](const FILETIME& time) {
    return static_cast<std::int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
  };
  return static_cast<int>((ticks(to) - ticks(from)) / 600'000'000);
}

TEST(TimeZoneOffset, IsThatOfTheClocksWithoutDaylightSaving) {
  TIME_ZONE_INFORMATION zone;
  if (GetTimeZoneInformation(&zone) == TIME_ZONE_ID_UNKNOWN) {
    // A zone that knows no daylight saving is left out, as it always has been.
    EXPECT_EQ(TimeZoneOffset(), 0);
    return;
  }
  EXPECT_EQ(TimeZoneOffset(), std::min(MinutesEast(1), MinutesEast(7)));
}

TEST(UserMonthNames, AreTwelveAndDiffer) {
  MonthNames names = UserMonthNames();
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::unique(names.begin(), names.end()), names.end());
  EXPECT_FALSE(names.front().empty());
}

}  // namespace
}  // namespace kestrin::geo
