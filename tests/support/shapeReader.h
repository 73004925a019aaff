#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace kestrin::test {

/// Xmin, Ymin, Xmax, Ymax.
using Bounds = std::array<double, 4>;

struct ReadRecord {
  Bounds box{};
  std::vector<std::int32_t> parts;
  std::vector<std::pair<double, double>> points;
};

struct ReadField {
  std::string name;
  char type = 0;
  int width = 0;
  int decimals = 0;

  friend bool operator==(const ReadField&, const ReadField&) = default;
};

/// Everything a shapefile set says.
struct ReadSet {
  std::int32_t type = 0;
  Bounds box{};
  std::vector<ReadRecord> records;
  std::array<int, 3> date{};  ///< year, month, day
  std::vector<ReadField> fields;
  /// The fields' texts as they stand, blanks included.
  std::vector<std::vector<std::string>> rows;
};

/// Reads base path + ".shp", ".shx" and ".dbf" by the ESRI Shapefile Technical
/// Description and the dBASE III layout, sharing nothing with the code that writes
/// them. Throws std::runtime_error at whatever is not as described there: lengths,
/// numbers, offsets, parts, boxes, marks, counts.
ReadSet ReadShapeSet(const std::string& basePath);

/// A field's text without the blanks around it.
std::string Trimmed(const std::string& text);

}  // namespace kestrin::test
