#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/crew.h"
#include "base/fileSystem.h"
#include "base/runHost.h"
#include "jobstore/sqliteDefs.h"
#include "shapefile/shapefileSet.h"

namespace kestrin::exports {

/// What every export works with besides its two paths.
struct ExportRun {
  base::RunHost& host;
  base::FileSystem& files;
  shapefile::SetOptions options;
  /// Of the net set: count the implement's full width, whatever the sections' switches say.
  bool allSections = false;
  /// Who works on rows beside the caller's thread; the sets are the same without.
  base::Crew* crew = nullptr;
};

/// A number that a set says of its whole job, by the name a machine is told it under.
struct Figure {
  std::string_view name;
  double value = 0;
};

/// How an export ended. Failures of the job were shown through the host; file
/// errors are thrown (FileError).
struct ExportOutcome {
  /// Whether the set now exists.
  bool made = false;
  /// GPS rows read.
  std::int64_t epochs = 0;
  /// What ended the rows: kDone in good order, else the library's error code, and the set then
  /// holds what was read before it: all GPS rows where another table could not be read on.
  std::int32_t lastStep = jobstore::kDone;
  /// What else there is to say of a set that was made, or of there being none; mostly
  /// nothing.
  std::string summary{};
  /// Of a set that was made, what its table comes to: "meters" of a path, "acres" of ground as
  /// the records show them, added up; of net ground "gross_acres" and "overlap_percent" as well.
  std::vector<Figure> figures{};
};

/// An index outside an array: the run-time error that ends an export. It says why in words for
/// the user wherever it leaves an export.
class SubscriptError : public std::runtime_error {
 public:
  SubscriptError() : std::runtime_error("Subscript out of range") {}
  explicit SubscriptError(const std::string& reason) : std::runtime_error(reason) {}
};

/// What the user is told of a job that cannot be opened, or a query of it that cannot
/// be prepared, with the number of the result.
inline constexpr std::string_view kNotOpened = "Error opening: ";
inline constexpr std::string_view kNotPrepared = "Error creating statement: ";
inline std::string NotOpenedText(std::int32_t result) {
  return std::string(kNotOpened) + std::to_string(result);
}
inline std::string NotPreparedText(std::int32_t result) {
  return std::string(kNotPrepared) + std::to_string(result);
}

}  // namespace kestrin::exports
