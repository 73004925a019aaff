#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "geo/box.h"
#include "geo/points.h"

namespace kestrin::test {

struct ReadRecord {
  geo::Box box;
  std::vector<std::int32_t> parts;
  std::vector<geo::GeoPoint> points;
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
  geo::Box box;
  std::vector<ReadRecord> records;
  std::array<int, 3> date{};  ///< year, month, day
  std::vector<ReadField> fields;
  /// The fields' texts as they stand, blanks included.
  std::vector<std::vector<std::string>> rows;
};

/// Whether each record's box must be that of its points, as every reader expects; the boom
/// export keeps the bounds of lines that it has overwritten since.
enum class RecordBoxes { kOfTheirPoints, kAny };

/// The bytes of a set's three files.
struct SetBytes {
  std::string shp;
  std::string shx;
  std::string dbf;
};

/// Reads a set by the ESRI Shapefile Technical Description and the dBASE III layout,
/// sharing nothing with the code that writes it.
/// Failure: std::runtime_error at whatever is not as described there: lengths, numbers,
/// offsets, parts, boxes, marks, counts.
ReadSet ReadShapeSet(const SetBytes& bytes, RecordBoxes boxes = RecordBoxes::kOfTheirPoints);

/// The same of base path + ".shp", ".shx" and ".dbf".
ReadSet ReadShapeSet(const std::string& basePath, RecordBoxes boxes = RecordBoxes::kOfTheirPoints);

/// A field's text without the blanks around it.
std::string Trimmed(const std::string& text);

}  // namespace kestrin::test
