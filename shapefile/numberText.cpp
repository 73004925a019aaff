#include "shapefile/numberText.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace kestrin::shapefile {
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

/// "00" to "99".
constexpr std::array<char, 200> kPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const std::size_t number = i / 2;
    pairs[i] = static_cast<char>('0' + (i % 2 == 0 ? number / 10 : number % 10));
  }
  return pairs;
}();

char* PutDigitBefore(char* out, std::uint64_t& number) {
  *--out = static_cast<char>('0' + number % 10);
  number /= 10;
  return out;
}

char* PutPairBefore(char* out, std::uint64_t& number) {
  out -= 2;
  std::memcpy(out, &kPairs[2 * (number % 100)], 2);
  number /= 100;
  return out;
}

/// Puts `number` / 10^decimals in front of `out` and returns where it begins. From
/// the back, as digits come out of a number in that order: half the time of a table
/// goes into this.
char* PutScaledBefore(char* out, std::uint64_t number, int decimals) {
  while (decimals > 0 && number % 10 == 0) {
    number /= 10;
    --decimals;
  }
  if (decimals > 0) {
    for (; decimals > 1; decimals -= 2) out = PutPairBefore(out, number);
    if (decimals == 1) out = PutDigitBefore(out, number);
    *--out = '.';
  }
  while (number >= 100) out = PutPairBefore(out, number);
  return number >= 10 ? PutPairBefore(out, number) : PutDigitBefore(out, number);
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
  text.TakeScaled(static_cast<std::int64_t>(scaled), decimals);
  return text;
}

NumberText IntegerText(std::int64_t value) {
  NumberText text;
  text.TakeScaled(value, 0);
  return text;
}

void NumberText::TakeScaled(std::int64_t number, int decimals) {
  char* const end = characters_.data() + characters_.size();
  const auto bits = static_cast<std::uint64_t>(number);
  char* begin = PutScaledBefore(end, number < 0 ? 0 - bits : bits, decimals);
  if (number < 0) *--begin = '-';
  begin_ = static_cast<std::size_t>(begin - characters_.data());
  size_ = static_cast<std::size_t>(end - begin);
}

}  // namespace kestrin::shapefile
