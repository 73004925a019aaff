#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/fileSystem.h"
#include "geo/box.h"
#include "shapefile/attributeTable.h"

namespace kestrin::shapefile {

/// Shape types of the ESRI Shapefile Technical Description.
enum class ShapeType : std::int32_t { kPoint = 1, kPolyline = 3, kPolygon = 5 };

/// What a caller decides about every set it has written.
struct SetOptions {
  CalendarDate date = Today();
  /// Also write ".prj" (NAD83) and ".cpg" (UTF-8).
  bool withProjection = false;
};

/// Deletes the ".shp", ".shx" and ".dbf" of a base path where they exist.
void RemoveSet(base::FileSystem& files, const std::string& basePath);

/// Whether all three files of a base path exist.
bool SetExists(base::FileSystem& files, const std::string& basePath);

/// Writes one shapefile set: base path + ".shp", ".shx" and ".dbf" (byte layout:
/// docs/shapefiles.md). Coordinates are longitude and latitude in degrees.
///
/// The set is whole or absent. It is written beside its target under temporary
/// names, with memory that does not grow with the rows, and takes its names only
/// in Commit, ".shp" last. Without a Commit that returned, destruction leaves
/// nothing behind. Every operation may throw FileError: for what the system
/// refuses, and for a file that would pass 2 GiB.
///
/// Each shape record must be followed by one AddAttributes.
class ShapefileSet {
 public:
  ShapefileSet(base::FileSystem& files, std::string basePath, ShapeType type,
               std::span<const Field> fields, const SetOptions& options);
  ~ShapefileSet();
  ShapefileSet(const ShapefileSet&) = delete;
  ShapefileSet& operator=(const ShapefileSet&) = delete;

  /// A whole record of a point set; widens the file's box.
  void AddPoint(double x, double y);

  /// A record of one part whose vertices arrive one by one: polyline or polygon.
  /// A vertex widens the record's box and the file's.
  void BeginRecord();
  void AddVertex(double x, double y);
  void EndRecord();

  /// A polyline record of parts of two vertices each (x, y, x, y, ... of an even
  /// number of vertices, none included), with the box given. The file's box is
  /// left to WidenBox.
  void AddPairs(const geo::Box& box, std::span<const double> coordinates);

  /// The same for a record that does not lie in one piece: its number of parts
  /// first, then all their coordinates, a whole number of parts at a time.
  void BeginPairs(const geo::Box& box, std::size_t parts);
  void AddPairPoints(std::span<const double> coordinates);

  /// Widens the file's box alone.
  void WidenBox(double x, double y);

  /// The attribute record of the shape record just added: AttributeRecord::Bytes
  /// of the set's fields.
  void AddAttributes(std::string_view record);

  /// Shape records so far.
  std::int32_t RecordCount() const;

  /// Completes the files, brings them to the medium and gives them their names.
  void Commit();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace kestrin::shapefile
