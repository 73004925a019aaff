#include "base/text.h"

#include <gtest/gtest.h>

namespace kestrin::base {
namespace {

TEST(Text, WithoutTakesOutEveryOccurrence) {
  EXPECT_EQ(Without("a.shp.shp", ".shp"), "a");
  EXPECT_EQ(Without("x.shpy.shp", ".shp"), "xy");
  EXPECT_EQ(Without("a.SHP", ".shp"), "a.SHP");
  EXPECT_EQ(Without("", ".shp"), "");
}

TEST(Text, WhatTakingOutJoinsIsNotLookedAtAgain) {
  EXPECT_EQ(Without("a.s.shphp", ".shp"), "a.shp");
}

TEST(Text, OnlyBlanksAreTrimmed) {
  EXPECT_EQ(TrimmedBlanks("  3.2.8-1 "), "3.2.8-1");
  EXPECT_EQ(TrimmedBlanks("   "), "");
  EXPECT_EQ(TrimmedBlanks(""), "");
  EXPECT_EQ(TrimmedBlanks("\t3.2.8-1"), "\t3.2.8-1");
}

}  // namespace
}  // namespace kestrin::base
