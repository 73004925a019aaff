#include "geo/gpsTime.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace kestrin::geo {
namespace {

using std::chrono::local_days;
using std::chrono::seconds;
using std::chrono::year;

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();

const MonthNames kEnglish = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

LocalDateTime Date(int y, unsigned month, unsigned day) {
  return local_days{year{y} / std::chrono::month{month} / std::chrono::day{day}};
}

TEST(LocalTimeOf, WeekZeroBeginsOn22August1999) {
  const LocalDateTime time = LocalTimeOf({0, 0}, 0);
  EXPECT_EQ(time, Date(1999, 8, 22));
  EXPECT_EQ(DateText(time, kEnglish), "1999Aug22");
}

TEST(LocalTimeOf, DropsMillisecondsBelowASecond) {
  EXPECT_EQ(LocalTimeOf({350, 86399999}, 0),
            Date(1999, 8, 22) + std::chrono::days{350 * 7} + seconds{86399});
}

TEST(LocalTimeOf, TruncatesNegativeMillisecondsTowardsZero) {
  EXPECT_EQ(LocalTimeOf({0, -999}, 0), Date(1999, 8, 22));
  EXPECT_EQ(LocalTimeOf({0, -1999}, 0), Date(1999, 8, 22) - seconds{1});
}

TEST(LocalTimeOf, AddsTheZoneOffsetAsSeconds) {
  EXPECT_EQ(LocalTimeOf({0, 0}, 60), Date(1999, 8, 22) + seconds{60});
  EXPECT_EQ(LocalTimeOf({0, 0}, -300), Date(1999, 8, 22) - seconds{300});
  EXPECT_EQ(DateText(LocalTimeOf({0, 0}, -300), kEnglish), "1999Aug21");
}

TEST(LocalTimeOf, TakesMillisecondsBeyondTheirWeek) {
  EXPECT_EQ(LocalTimeOf({0, 604800000}, 0), LocalTimeOf({1, 0}, 0));
  EXPECT_EQ(LocalTimeOf({0, kMax}, kMax), Date(1999, 8, 22) + seconds{2147483} + seconds{kMax});
}

TEST(LocalTimeOf, CountsWeeksBeforeTheFirst) {
  EXPECT_EQ(LocalTimeOf({-1, 0}, 0), Date(1999, 8, 15));
}

TEST(LocalTimeOf, RefusesDaysBeyond32Bits) {
  EXPECT_THROW(LocalTimeOf({306783379, 0}, 0), std::overflow_error);
  EXPECT_THROW(LocalTimeOf({-306783379, 0}, 0), std::overflow_error);
  EXPECT_THROW(LocalTimeOf({kMax, 0}, 0), std::overflow_error);
  EXPECT_THROW(LocalTimeOf({kMin, 0}, 0), std::overflow_error);
  // 2^32 / 7 weeks: days that would wrap around to a date near the first week.
  EXPECT_THROW(LocalTimeOf({613566757, 0}, 0), std::overflow_error);
}

TEST(LocalTimeOf, RefusesDatesBeyondFourDigitYears) {
  constexpr std::int32_t kLastWeek = 417438;  // begins on 26 December 9999
  EXPECT_EQ(DateText(LocalTimeOf({kLastWeek, 0}, 0), kEnglish), "9999Dec26");
  EXPECT_THROW(LocalTimeOf({kLastWeek + 1, 0}, 0), std::overflow_error);
  EXPECT_THROW(LocalTimeOf({306783378, 0}, 0), std::overflow_error);
  EXPECT_THROW(LocalTimeOf({-306783378, 0}, 0), std::overflow_error);
}

TEST(LocalTimeOf, TakesAllDatesOfFourDigitYearsAndNoOthers) {
  const auto second = [](LocalDateTime time) {
    const auto since = time - Date(1999, 8, 22);
    const auto weeks = std::chrono::floor<std::chrono::weeks>(since);
    const auto rest = std::chrono::milliseconds(since - weeks);
    return LocalTimeOf(
        {static_cast<std::int32_t>(weeks.count()), static_cast<std::int32_t>(rest.count())}, 0);
  };
  EXPECT_EQ(second(Date(1, 1, 1)), Date(1, 1, 1));
  EXPECT_THROW(second(Date(1, 1, 1) - seconds{1}), std::overflow_error);
  EXPECT_EQ(second(Date(10000, 1, 1) - seconds{1}), Date(10000, 1, 1) - seconds{1});
  EXPECT_THROW(second(Date(10000, 1, 1)), std::overflow_error);
}

TEST(DateText, PadsNoDay) { EXPECT_EQ(DateText(Date(2006, 6, 5), kEnglish), "2006Jun5"); }

TEST(DateText, KeepsTheDateUntilTheLastSecondOfTheDay) {
  EXPECT_EQ(DateText(Date(2006, 6, 15) + seconds{86399}, kEnglish), "2006Jun15");
  EXPECT_EQ(DateText(Date(2006, 6, 15) - seconds{1}, kEnglish), "2006Jun14");
}

TEST(DateText, NamesEveryMonthAsHandedIn) {
  for (unsigned month = 1; month <= 12; ++month) {
    EXPECT_EQ(DateText(Date(2024, month, 9), kEnglish), "2024" + kEnglish[month - 1] + "9");
  }
  MonthNames german = kEnglish;
  german[2] = "Mär";
  EXPECT_EQ(DateText(Date(2024, 3, 31), german), "2024Mär31");
}

TEST(DateText, GivesYearsFourDigits) { EXPECT_EQ(DateText(Date(987, 1, 2), kEnglish), "0987Jan2"); }

}  // namespace
}  // namespace kestrin::geo
