#include "geo/timeZone.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

#include "geo/monthNames.h"

namespace kestrin {
namespace {

/// Sets an environment variable for the length of a scope.
class Setting {
 public:
  Setting(const char* name, const char* value) : name_(name) {
    const char* before = std::getenv(name);
    had_ = before != nullptr;
    if (had_) before_ = before;
    setenv(name, value, 1);
  }
  ~Setting() {
    if (had_) {
      setenv(name_, before_.c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;

 private:
  const char* name_;
  std::string before_;
  bool had_ = false;
};

std::int32_t OffsetIn(const char* zone) {
  const Setting setting("TZ", zone);
  return TimeZoneOffset();
}

TEST(TimeZoneOffset, IsInMinutesEastOfGreenwich) {
  EXPECT_EQ(OffsetIn("EST5"), -300);
  EXPECT_EQ(OffsetIn("IST-5:30"), 330);
  EXPECT_EQ(OffsetIn("UTC0"), 0);
}

TEST(TimeZoneOffset, LeavesDaylightSavingOutOnBothHemispheres) {
  EXPECT_EQ(OffsetIn("CST6CDT,M3.2.0,M11.1.0"), -360);
  EXPECT_EQ(OffsetIn("AEST-10AEDT,M10.1.0,M4.1.0/3"), 600);
}

TEST(TimeZoneOffset, IsZeroWithoutAZone) {
  EXPECT_EQ(OffsetIn(""), 0);
  EXPECT_EQ(OffsetIn("/no/such/zone"), 0);
}

TEST(UserMonthNames, AreEnglishInTheCLocaleAndInAnUnknownOne) {
  const MonthNames english{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                           "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  for (const char* locale : {"C", "xx_XX.no-such"}) {
    const Setting setting("LC_ALL", locale);
    EXPECT_EQ(UserMonthNames(), english) << locale;
  }
}

TEST(UserMonthNames, LeaveTheProcessLocaleAlone) {
  const std::string before = setlocale(LC_ALL, nullptr);
  UserMonthNames();
  EXPECT_EQ(setlocale(LC_ALL, nullptr), before);
}

}  // namespace
}  // namespace kestrin
