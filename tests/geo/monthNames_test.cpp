#include "geo/monthNames.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace kestrin::geo {
namespace {

TEST(UserMonthNames, LeaveTheProcessLocaleAlone) {
  const std::string before = setlocale(LC_ALL, nullptr);
  UserMonthNames();
  EXPECT_EQ(setlocale(LC_ALL, nullptr), before);
}

}  // namespace
}  // namespace kestrin::geo
