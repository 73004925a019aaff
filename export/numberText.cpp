#include "export/numberText.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace kestrin {
namespace {

constexpr int kDigits = 15;

/// The powers of ten that a double holds exactly.
constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

double PowerOfTen(int exponent) { return kPowersOfTen[static_cast<std::size_t>(exponent)]; }

/// A number's first 15 significant digits, less trailing zeros, and the decimal
/// exponent of the first.
struct Digits {
  std::array<char, kDigits> digits;
  int count;
  int exponent;
};

Digits DigitsOf(double magnitude) {
  char text[32];
  const char* end =
      std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific, kDigits - 1)
          .ptr;
  Digits result{};
  // "d.dddddddddddddde-123"
  result.digits[0] = text[0];
  std::memcpy(&result.digits[1], text + 2, kDigits - 1);
  const char* exponent = text + 2 + kDigits;
  if (*exponent == '+') ++exponent;
  std::from_chars(exponent, end, result.exponent);
  result.count = kDigits;
  while (result.count > 1 && result.digits[static_cast<std::size_t>(result.count - 1)] == '0') {
    --result.count;
  }
  return result;
}

char* Copy(char* out, const char* from, int count) {
  std::memcpy(out, from, static_cast<std::size_t>(count));
  return out + count;
}

char* Zeros(char* out, int count) {
  std::memset(out, '0', static_cast<std::size_t>(count));
  return out + count;
}

char* PutFixed(char* out, const Digits& number) {
  const char* digits = number.digits.data();
  if (number.exponent < 0) {
    out = Copy(out, "0.", 2);
    out = Zeros(out, -number.exponent - 1);
    return Copy(out, digits, number.count);
  }
  const int whole = number.exponent + 1;
  if (number.count <= whole) return Zeros(Copy(out, digits, number.count), whole - number.count);
  out = Copy(out, digits, whole);
  *out++ = '.';
  return Copy(out, digits + whole, number.count - whole);
}

char* PutScientific(char* out, char* end, const Digits& number) {
  *out++ = number.digits[0];
  if (number.count > 1) {
    *out++ = '.';
    out = Copy(out, &number.digits[1], number.count - 1);
  }
  *out++ = 'E';
  *out++ = number.exponent < 0 ? '-' : '+';
  const int exponent = std::abs(number.exponent);
  if (exponent < 10) *out++ = '0';
  return std::to_chars(out, end, exponent).ptr;
}

/// Below this a number has an exponent in its text.
constexpr int kLeastFixedExponent = -4;

/// Puts `count` / 10^decimals, as long as that has at most 15 digits and no exponent.
char* PutScaled(char* out, char* end, std::int64_t count, int decimals) {
  if (count < 0) {
    *out++ = '-';
    count = -count;
  }
  while (decimals > 0 && count % 10 == 0) {
    count /= 10;
    --decimals;
  }
  const auto power = static_cast<std::int64_t>(PowerOfTen(decimals));
  out = std::to_chars(out, end, count / power).ptr;
  if (decimals == 0) return out;
  // Added to its power, the fraction keeps its leading zeros behind a 1: the dot's place.
  char* const dot = out;
  out = std::to_chars(dot, end, power + count % power).ptr;
  *dot = '.';
  return out;
}

}  // namespace

double RoundTo(double value, int decimals) {
  const double power = PowerOfTen(decimals);
  return std::nearbyint(value * power) / power;
}

NumberText ShortestText(double value) {
  NumberText text;
  char* const begin = text.characters_.data();
  char* const end = begin + text.characters_.size();
  char* out = begin;
  if (value == 0 || !std::isfinite(value)) {
    *out++ = '0';
  } else {
    if (value < 0) *out++ = '-';
    const Digits number = DigitsOf(std::fabs(value));
    const bool fixed = number.exponent >= kLeastFixedExponent && number.exponent < kDigits;
    out = fixed ? PutFixed(out, number) : PutScientific(out, end, number);
  }
  text.size_ = static_cast<std::size_t>(out - begin);
  return text;
}

NumberText RoundedText(double value, int decimals) {
  // A decimal fraction of at most 15 digits is what the double nearest to it gives
  // back, so the digits of the whole number are the text's.
  const double scaled = std::nearbyint(value * PowerOfTen(decimals));
  const double least =
      decimals > -kLeastFixedExponent ? PowerOfTen(decimals + kLeastFixedExponent) : 0;
  const double magnitude = std::fabs(scaled);
  const bool direct = magnitude < 1e15 && (magnitude >= least || magnitude == 0);
  if (!direct) return ShortestText(scaled / PowerOfTen(decimals));
  NumberText text;
  char* const begin = text.characters_.data();
  char* const out = PutScaled(begin, begin + text.characters_.size(),
                              static_cast<std::int64_t>(scaled), decimals);
  text.size_ = static_cast<std::size_t>(out - begin);
  return text;
}

NumberText IntegerText(std::int64_t value) {
  NumberText text;
  char* const begin = text.characters_.data();
  text.size_ = static_cast<std::size_t>(
      std::to_chars(begin, begin + text.characters_.size(), value).ptr - begin);
  return text;
}

}  // namespace kestrin
