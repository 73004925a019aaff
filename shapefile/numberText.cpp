#include "shapefile/numberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kestrin::shapefile {
namespace {

constexpr int kDigits = 15;

/// Below this a number has an exponent in its text.
constexpr int kLeastFixedExponent = -4;

constexpr std::array<double, kDigits + 1> kPowersOfTen = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

double PowerOfTen(int exponent) { return kPowersOfTen[static_cast<std::size_t>(exponent)]; }

/// Whether `number` / 10^decimals has no exponent in its text and no more digits than a text
/// takes. A decimal fraction of so few digits is what the double nearest to it gives back, so
/// the digits of the whole number are the text's.
bool HasItsOwnDigits(double number, int decimals) {
  const double magnitude = std::fabs(number);
  const int least = decimals + kLeastFixedExponent;
  return magnitude < PowerOfTen(kDigits) && (least <= 0 || magnitude >= PowerOfTen(least));
}

/// Puts `number` / `power`, a power of ten, without trailing zeros.
char* PutQuotient(char* out, char* limit, std::int64_t number, std::int64_t power) {
  if (number < 0) *out++ = '-';
  number = std::abs(number);
  char* const point = std::to_chars(out, limit, number / power).ptr;
  // The power in front keeps the zeros behind the point, and the point's place.
  char* end = std::to_chars(point, limit, number % power + power).ptr;
  *point = '.';
  while (end[-1] == '0') --end;
  return end == point + 1 ? point : end;
}

}  // namespace

double RoundTo(double value, int decimals) {
  const double power = PowerOfTen(decimals);
  return std::nearbyint(value * power) / power;
}

NumberText ShortestText(double value) {
  if (value == 0 || !std::isfinite(value)) return IntegerText(0);
  return NumberText([&](char* begin, char* limit) {
    char* const end = std::to_chars(begin, limit, value, std::chars_format::general, kDigits).ptr;
    std::replace(begin, end, 'e', 'E');
    return end;
  });
}

NumberText RoundedText(double value, int decimals) {
  const double power = PowerOfTen(decimals);
  const double scaled = std::nearbyint(value * power);
  if (!HasItsOwnDigits(scaled, decimals)) return ShortestText(scaled / power);
  return NumberText([&](char* begin, char* limit) {
    return PutQuotient(begin, limit, static_cast<std::int64_t>(scaled),
                       static_cast<std::int64_t>(power));
  });
}

NumberText IntegerText(std::int64_t value) {
  return NumberText(
      [&](char* begin, char* limit) { return std::to_chars(begin, limit, value).ptr; });
}

double NumberIn(std::string_view text, int width) {
  text = text.substr(0, static_cast<std::size_t>(width));
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace kestrin::shapefile
