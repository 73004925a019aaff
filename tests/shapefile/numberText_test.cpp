#include "shapefile/numberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace kestrin::shapefile {
namespace {

std::string Shortest(double value) { return std::string(ShortestText(value).View()); }
std::string Rounded(double value, int decimals) {
  return std::string(RoundedText(value, decimals).View());
}

/// What the C library prints; tests run in the C locale.
std::string Printed(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.15G", value);
  return text;
}

std::string Expected(double value) {
  return value == 0 || !std::isfinite(value) ? "0" : Printed(value);
}

TEST(NumberText, ShortestTextOfEverydayNumbers) {
  EXPECT_EQ(Shortest(12.5), "12.5");
  EXPECT_EQ(Shortest(3), "3");
  EXPECT_EQ(Shortest(-0.25), "-0.25");
  EXPECT_EQ(Shortest(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(Shortest(1e-5), "1E-05");
  EXPECT_EQ(Shortest(1e15), "1E+15");
  EXPECT_EQ(Shortest(100), "100");
  EXPECT_EQ(Shortest(123456789012345.0), "123456789012345");
  EXPECT_EQ(Shortest(0.0001), "0.0001");
  EXPECT_EQ(Shortest(-1.5e300), "-1.5E+300");
}

TEST(NumberText, CarryIntoAnotherDigitMovesTheExponent) {
  EXPECT_EQ(Shortest(9.999999999999999), "10");
  EXPECT_EQ(Shortest(999999999999999.9), "1E+15");
  EXPECT_EQ(Shortest(0.00009999999999999999), "0.0001");
}

TEST(NumberText, NegativeZeroInfinitiesAndNoNumberAreZero) {
  EXPECT_EQ(Shortest(-0.0), "0");
  EXPECT_EQ(Shortest(std::numeric_limits<double>::infinity()), "0");
  EXPECT_EQ(Shortest(-std::numeric_limits<double>::infinity()), "0");
  EXPECT_EQ(Shortest(std::numeric_limits<double>::quiet_NaN()), "0");
  EXPECT_EQ(Rounded(-0.001, 2), "0");
  EXPECT_EQ(Rounded(std::numeric_limits<double>::infinity(), 2), "0");
  EXPECT_EQ(Rounded(std::numeric_limits<double>::quiet_NaN(), 8), "0");
  // Scaling alone takes it past the largest double.
  EXPECT_EQ(Rounded(1.7e308, 2), "0");
}

TEST(NumberText, TiesGoToEven) {
  EXPECT_EQ(RoundTo(0.125, 2), 0.12);
  EXPECT_EQ(RoundTo(0.375, 2), 0.38);
  EXPECT_EQ(RoundTo(-0.125, 2), -0.12);
  EXPECT_EQ(RoundTo(2.5, 0), 2);
  EXPECT_EQ(Rounded(0.125, 2), "0.12");
  EXPECT_EQ(Rounded(0.375, 2), "0.38");
  EXPECT_EQ(Rounded(3.5, 0), "4");
}

TEST(NumberText, RoundedTextHasNoTrailingZeros) {
  EXPECT_EQ(Rounded(12.5, 2), "12.5");
  EXPECT_EQ(Rounded(3.0, 2), "3");
  EXPECT_EQ(Rounded(12.04, 2), "12.04");
  EXPECT_EQ(Rounded(-0.05, 2), "-0.05");
  EXPECT_EQ(Rounded(120, 2), "120");
  EXPECT_EQ(Rounded(45.12345678, 8), "45.12345678");
  EXPECT_EQ(Rounded(1e-8, 8), "1E-08");
  EXPECT_EQ(Rounded(0.00012345, 8), "0.00012345");
}

TEST(NumberText, ShortestTextIsWhatTheCLibraryPrintsForAnyBits) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 1'000'000; ++i) {
    const auto value = std::bit_cast<double>(random());
    ASSERT_EQ(ShortestText(value).View(), Expected(value)) << i;
  }
}

TEST(NumberText, ShortestTextIsWhatTheCLibraryPrintsForFieldValues) {
  std::mt19937_64 random(2);
  std::uniform_real_distribution<double> exponent(-8, 17);
  for (int i = 0; i < 500'000; ++i) {
    const double value = std::copysign(std::pow(10, exponent(random)), exponent(random));
    ASSERT_EQ(ShortestText(value).View(), Expected(value)) << value;
    const double whole = std::nearbyint(value);
    ASSERT_EQ(ShortestText(whole).View(), Expected(whole)) << whole;
  }
}

/// Rounding by its definition, its text by the C library.
TEST(NumberText, RoundedTextIsTheTextOfTheRoundedNumber) {
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> exponent(-11, 17);
  for (const int decimals : {0, 1, 2, 3, 4, 5, 8, 10}) {
    const double power = std::pow(10, decimals);
    for (int i = 0; i < 100'000; ++i) {
      const double value = i % 8 == 0
                               ? std::bit_cast<double>(random())
                               : std::copysign(std::pow(10, exponent(random)), exponent(random));
      const double rounded = std::nearbyint(value * power) / power;
      ASSERT_EQ(RoundedText(value, decimals).View(), Expected(rounded)) << value << ' ' << decimals;
      ASSERT_EQ(ShortestText(RoundTo(value, decimals)).View(), Expected(rounded)) << value;
    }
  }
}

TEST(NumberText, RoundedTextAroundTheLimitOfFifteenDigits) {
  for (const int decimals : {2, 8}) {
    const double power = std::pow(10, decimals);
    for (int step = -2000; step <= 2000; ++step) {
      for (const double around : {1e15, 1e4, 1e3, 0.0}) {
        const double value = (around + step * 0.5) / power;
        ASSERT_EQ(RoundedText(value, decimals).View(),
                  Expected(std::nearbyint(value * power) / power))
            << value << ' ' << decimals;
      }
    }
  }
}

TEST(NumberText, Integers) {
  EXPECT_EQ(IntegerText(0).View(), "0");
  EXPECT_EQ(IntegerText(-42).View(), "-42");
  EXPECT_EQ(IntegerText(std::numeric_limits<long long>::min()).View(), "-9223372036854775808");
}

TEST(NumberText, ATextCutToItsFieldShowsWhatIsLeftOfItsNumber) {
  EXPECT_EQ(NumberIn("1234.56", 10), 1234.56);
  EXPECT_EQ(NumberIn("12345678.91", 10), 12345678.9);
  EXPECT_EQ(NumberIn("-0.5", 10), -0.5);
  EXPECT_EQ(NumberIn("", 10), 0);
}

}  // namespace
}  // namespace kestrin::shapefile
