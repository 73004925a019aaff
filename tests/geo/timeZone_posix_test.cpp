#include "geo/timeZone.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "geo/monthNames.h"
#include "tests/support/setting.h"
#include "tests/support/tempFolder.h"

/// Here zone and language are told by the environment.

namespace kestrin::geo {
namespace {

std::int32_t OffsetIn(const char* zone) {
  const test::Setting setting("TZ", zone);
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
    const test::Setting setting("LC_ALL", locale);
    EXPECT_EQ(UserMonthNames(), english) << locale;
  }
}

/// The names in a language that this test installs for itself alone; nothing where
/// the system cannot make it.
std::optional<MonthNames> NamesIn(const std::string& language) {
  const test::TempFolder folder;
  const std::string locale = language + ".UTF-8";
  const std::string make = "localedef -i " + language + " -f UTF-8 '" + (folder / locale) + "'";
  if (std::system((make + " >/dev/null 2>&1").c_str()) != 0) return std::nullopt;
  const test::Setting place("LOCPATH", folder.Path().string());
  const test::Setting setting("LC_ALL", locale);
  return UserMonthNames();
}

TEST(UserMonthNames, AreThoseOfTheUsersLanguage) {
  const auto german = NamesIn("de_DE");
  if (!german) GTEST_SKIP() << "no languages to install";
  EXPECT_EQ(german->at(2), "Mär");
  EXPECT_EQ(german->at(11), "Dez");
}

TEST(UserMonthNames, HaveNoPadding) {
  const auto japanese = NamesIn("ja_JP");
  if (!japanese) GTEST_SKIP() << "no languages to install";
  EXPECT_EQ(japanese->at(0), "1月");
  EXPECT_EQ(japanese->at(11), "12月");
}

}  // namespace
}  // namespace kestrin::geo
