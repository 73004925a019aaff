#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// Numbers as attribute tables write them: always with a "." and never through the locale or
/// printf. Nothing here fails.

namespace kestrin::shapefile {

/// The text of a number, held without allocation.
class NumberText {
 public:
  /// The text that `put` writes: char* put(char* begin, char* limit) returns its end.
  template <class Put>
  explicit NumberText(Put put) {
    char* const begin = characters_.data();
    size_ = static_cast<std::size_t>(put(begin, begin + characters_.size()) - begin);
  }

  /// Valid as long as this object is.
  std::string_view View() const { return {characters_.data(), size_}; }

 private:
  std::array<char, 32> characters_{};
  std::size_t size_ = 0;
};

/// The value rounded to 0 to 15 decimals, ties to even.
double RoundTo(double value, int decimals);

/// The text that C's "%.15G" gives in the C locale: up to 15 significant digits, no trailing
/// zeros. Negative zero, infinities and NaN are "0".
NumberText ShortestText(double value);

/// ShortestText(RoundTo(value, decimals)), three to five times as fast: most of a table is
/// made of it.
NumberText RoundedText(double value, int decimals);

NumberText IntegerText(std::int64_t value);

/// The number that a field of so many bytes shows of a text whose first characters survive;
/// 0 where they are none.
double NumberIn(std::string_view text, int width);

}  // namespace kestrin::shapefile
