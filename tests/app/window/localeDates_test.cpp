#include "app/window/localeDates.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QLocale>
#include <map>
#include <string>

#include "geo/monthNames.h"

namespace kestrin::window {
namespace {

using namespace std::chrono_literals;

/// What a desktop's language makes of dates; the language this test runs under is
/// the environment's.
std::string ZeroDateHere() {
  static const std::map<QByteArray, std::string> expected{
      {"en_US.UTF-8", "12/30/1899"},
      {"de_DE.UTF-8", "30.12.1899"},
      {"fr_FR.UTF-8", "30/12/1899"},
      {"tr_TR.UTF-8", "30.12.1899"},
      {"ar_EG.UTF-8", "٣٠\u200f/١٢\u200f/١٨٩٩"},
  };
  const auto found = expected.find(qgetenv("LC_ALL"));
  return found == expected.end() ? "" : found->second;
}

TEST(LocaleDates, ShortDatesAreTheDesktopsOwn) {
  if (ZeroDateHere().empty()) GTEST_SKIP() << "another language";
  EXPECT_EQ(LocaleDates().ShortDate(1899y / 12 / 30), ZeroDateHere());
}

TEST(LocaleDates, MonthsAreThoseOfExportsWithoutAWindow) {
  EXPECT_EQ(LocaleDates().AbbreviatedMonths(), geo::UserMonthNames());
}

TEST(LocaleDates, ShortDatesShowTheCentury) {
  QLocale here = QLocale::system();
  here.setNumberOptions(QLocale::OmitGroupSeparator);
  // In digits of its own, where it has some.
  EXPECT_NE(LocaleDates().ShortDate(1899y / 12 / 30).find(here.toString(1899).toStdString()),
            std::string::npos);
}

}  // namespace
}  // namespace kestrin::window
