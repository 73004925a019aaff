#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// Numbers as attribute tables write them: always with a "." and never through
/// the locale or printf.

namespace kestrin::shapefile {

/// The text of a number, without allocation.
class NumberText {
 public:
  std::string_view View() const { return {characters_.data() + begin_, size_}; }

 private:
  friend NumberText ShortestText(double value);
  friend NumberText RoundedText(double value, int decimals);
  friend NumberText IntegerText(std::int64_t value);

  /// number / 10^decimals, written from the back.
  void TakeScaled(std::int64_t number, int decimals);

  std::array<char, 32> characters_{};
  std::size_t begin_ = 0;
  std::size_t size_ = 0;
};

/// The value rounded to the decimals, ties to even.
double RoundTo(double value, int decimals);

/// The text that C's "%.15G" gives in the C locale: up to 15 significant digits,
/// no trailing zeros. Negative zero, infinities and NaN are "0".
NumberText ShortestText(double value);

/// ShortestText(RoundTo(value, decimals)), faster.
NumberText RoundedText(double value, int decimals);

NumberText IntegerText(std::int64_t value);

}  // namespace kestrin::shapefile
