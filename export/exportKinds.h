#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "export/exportRun.h"
#include "shapefile/attributeTable.h"

namespace kestrin::exports {

/// A kind of shapefile sets.
struct ExportKind {
  std::string_view name;    ///< as a command line names it
  std::string_view suffix;  ///< what it adds to a base path
  ExportOutcome (*procedure)(const std::string& basePath, const std::string& jobPath,
                             ExportRun& run);
  /// The fields of a job's set, in their order. Only those of a point set hang on the job, whose
  /// rows are then looked at; one that cannot be read has each group once.
  std::vector<shapefile::Field> (*fields)(const std::string& jobPath);
};

inline constexpr int kKindCount = 4;
using ExportKinds = std::array<ExportKind, kKindCount>;

/// Wire, boom, polygon, point: everywhere, also on screen, they come in this order.
extern const ExportKinds kExportKinds;

/// The ground really covered: made when it is asked for by name, and not on screen.
extern const ExportKind kNetKind;

}  // namespace kestrin::exports
