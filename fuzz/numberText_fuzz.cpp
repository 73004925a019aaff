// Numbers and texts of attribute tables.

#include <clocale>
#include <cmath>
#include <cstdio>
#include <string>

#include "fuzz/input.h"
#include "shapefile/attributeTable.h"
#include "shapefile/numberText.h"

namespace kestrin::fuzz {
namespace {

using shapefile::Keep;

std::string Printed(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.15G", value);
  return std::isfinite(value) && value != 0 ? text : "0";
}

/// With fifteen digits, some numbers beyond this are texts of numbers that are too large.
constexpr double kReadable = 1.7976931348623e308;

void CheckNumber(double value, int decimals) {
  const auto shortest = shapefile::ShortestText(value);
  Require(shortest.View() == Printed(value), "a number's text is that of %.15G");
  Require(shapefile::RoundedText(value, decimals).View() ==
              Printed(shapefile::RoundTo(value, decimals)),
          "a rounded number's text is that of the number rounded");
  const double back = shapefile::NumberIn(shortest.View(), 32);
  Require(Printed(back) == shortest.View() || std::fabs(value) > kReadable,
          "a text gives its number back");
}

/// A record of a text in a field keeps its end of it, and is as long as the field.
void CheckField(std::string_view text, int width) {
  const shapefile::Field field{"F", 'C', width, 0};
  shapefile::AttributeRecord record({&field, 1});
  const auto size = static_cast<std::size_t>(width);
  for (const Keep keep : {Keep::kLeft, Keep::kRight}) {
    record.Clear();
    record.Add(text, keep);
    std::string expected(size, ' ');
    expected = " " + (expected + std::string(text)).substr(text.size());
    if (text.size() > size && keep == Keep::kLeft)
      expected = " " + std::string(text.substr(0, size));
    Require(record.Bytes() == expected, "a field keeps its end of a text");
  }
}

void CheckName(std::string_view name) {
  const std::string_view shown = shapefile::NameText(name);
  Require(name.starts_with(shown) && shown.size() <= 10, "a name is shown by its first bytes");
  Require(name.size() > 10 || shown == name, "a short name is shown whole");
}

}  // namespace

void Run(std::string_view bytes) {
  Input input(bytes);
  const int decimals = static_cast<int>(input.Below(16));
  const int width = static_cast<int>(1 + input.Below(40));
  const double value = input.Double();
  CheckNumber(value, decimals);
  CheckNumber(static_cast<double>(static_cast<std::int64_t>(input.Number(5))) / 1000, decimals);
  const std::string_view text = input.Rest();
  shapefile::NumberIn(text, width);
  CheckField(text, width);
  CheckName(text);
}

}  // namespace kestrin::fuzz
