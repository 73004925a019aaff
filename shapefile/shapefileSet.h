#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/fileSystem.h"
#include "geo/box.h"
#include "geo/points.h"
#include "shapefile/attributeTable.h"
#include "shapefile/setFile.h"

namespace kestrin::shapefile {

/// Shape types of the ESRI Shapefile Technical Description.
enum class ShapeType : std::int32_t { kPoint = 1, kPolyline = 3, kPolygon = 5 };

/// What a caller decides about every set it has written.
struct SetOptions {
  CalendarDate date = Today();
  /// Also write ".prj" (NAD83) and ".cpg" (UTF-8).
  bool withProjection = false;
  /// Wait until the files have reached the medium: a set is to outlive a power cut, unless nobody
  /// looks for it after one.
  bool lasting = true;
};

/// Deletes the ".shp", ".shx" and ".dbf" of a base path where they exist.
/// Failure: FileError.
void RemoveSet(base::FileSystem& files, const std::string& basePath);

/// Whether all three files of a base path exist.
/// Failure: FileError.
bool SetExists(base::FileSystem& files, const std::string& basePath);

/// Writes one shapefile set: base path + ".shp", ".shx" and ".dbf" (byte layout:
/// docs/shapefiles.md). Points are longitude and latitude in degrees. Each record is a shape
/// and its `attributes`: AttributeRecord::Bytes of the set's fields.
///
/// The set is whole or absent. It is written into its target's folder without names, with memory
/// that does not grow with the rows, and takes its names only in Commit, ".shp" last and alone
/// among the programs that write there: of two at once, the later one's set is whole.
/// Without a Commit that returned, destruction leaves nothing behind.
///
/// Failure: every operation may throw FileError, for what the system refuses and for a file
/// that would pass 2 GiB; after that the set can only be destroyed.
class ShapefileSet {
 public:
  ShapefileSet(base::FileSystem& files, std::string basePath, ShapeType type,
               std::span<const Field> fields, const SetOptions& options);

  /// A record of a point set; widens the file's box.
  void AddPoint(geo::GeoPoint point, std::string_view attributes);

  /// A record of so many parts, at least one, whose vertices arrive one by one: polyline or
  /// polygon. Each part but the first is begun by BeginPart. A vertex widens the record's box
  /// and the file's.
  void BeginRecord(std::size_t parts = 1);
  void BeginPart();
  void AddVertex(geo::GeoPoint vertex);
  void EndRecord(std::string_view attributes);

  /// A polyline record of cross-lines, each a part of its own: their number, which may be 0,
  /// and then that many AddCrossLine. The record's box is the one given; the file's is left to
  /// SetBox.
  void BeginCrossLines(const geo::Box& box, std::size_t count, std::string_view attributes);
  void AddCrossLine(geo::GeoPoint first, geo::GeoPoint second);

  /// The file's box, in the place of what has widened it so far.
  void SetBox(const geo::Box& box) { box_ = box; }

  /// Records so far, without one that has only begun: the ID of the next.
  std::int32_t RecordCount() const { return static_cast<std::int32_t>(recordCount_); }

  /// Completes the files, brings them to the medium, where they are lasting, and gives them their
  /// names.
  void Commit();

 private:
  char* PutRecordHeader(char* out, std::uint64_t contentBytes) const;
  void CountRecord(std::uint64_t start, std::uint64_t contentBytes, std::string_view attributes);
  void CompleteFiles();
  void WriteSidecar(std::optional<SetFile>& file, const char* extension, std::string_view text);
  std::vector<SetFile*> InOrderOfNaming();

  base::FileSystem& files_;
  std::string basePath_;
  ShapeType type_;
  bool withProjection_;
  bool lasting_;
  std::size_t attributesSize_;

  geo::Box box_;
  std::uint32_t recordCount_ = 0;
  geo::Box recordBox_;
  std::uint64_t recordStart_ = 0;
  std::uint64_t verticesStart_ = 0;
  std::vector<std::uint32_t> partStarts_;  // of the record: the first vertex of each

  // Outlives the files: one that fails while it takes its names takes them back in peace.
  std::shared_ptr<const void> lock_;

  // Destroyed from the last to the first: a set that fails while it takes its names loses its
  // ".shp" before all others.
  std::optional<SetFile> prj_;
  std::optional<SetFile> cpg_;
  SetFile dbf_;
  SetFile shx_;
  SetFile shp_;
};

}  // namespace kestrin::shapefile
