#include "app/localeDates.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <map>

namespace kestrin {
namespace {

using namespace std::chrono_literals;

/// What a desktop's language makes of dates; the language this test runs under is
/// the environment's.
struct Expected {
  std::string june;
  std::string december;
  std::string zeroDate;
};

const Expected* ExpectedHere() {
  static const std::map<QByteArray, Expected> expected{
      {"en_US.UTF-8", {"Jun", "Dec", "12/30/1899"}},
      {"de_DE.UTF-8", {"Jun", "Dez", "30.12.1899"}},
      {"fr_FR.UTF-8", {"juin", "déc.", "30/12/1899"}},
  };
  const auto found = expected.find(qgetenv("LC_ALL"));
  return found == expected.end() ? nullptr : &found->second;
}

TEST(LocaleDates, MonthsAndDatesAreTheDesktopsOwn) {
  const Expected* expected = ExpectedHere();
  if (expected == nullptr) GTEST_SKIP() << "another language";
  LocaleDates dates;
  EXPECT_EQ(dates.AbbreviatedMonths()[5], expected->june);
  EXPECT_EQ(dates.AbbreviatedMonths()[11], expected->december);
  EXPECT_EQ(dates.ShortDate(1899y / 12 / 30), expected->zeroDate);
}

TEST(LocaleDates, ShortDatesShowTheCentury) {
  EXPECT_NE(LocaleDates().ShortDate(1899y / 12 / 30).find("1899"), std::string::npos);
}

}  // namespace
}  // namespace kestrin
