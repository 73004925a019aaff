#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "export/exportRun.h"
#include "shapefile/attributeTable.h"

namespace kestrin::exports {

/// What a record of a set is.
enum class Shape { kPoint, kLine, kLines, kPolygon };

/// A kind of shapefile sets.
struct ExportKind {
  std::string_view name;    ///< as a command line names it
  std::string_view suffix;  ///< what it adds to a base path
  ExportOutcome (*procedure)(const std::string& basePath, const std::string& jobPath,
                             ExportRun& run);
  Shape shape{};
  /// The fields of a job's set, in their order. Only those of a point set hang on the job, whose
  /// rows are then looked at; one that cannot be read has each group once.
  std::vector<shapefile::Field> (*fields)(const std::string& jobPath) = nullptr;
  std::string_view purpose{};  ///< of a named kind: what the command's help says it is
};

inline constexpr int kKindCount = 4;
using ExportKinds = std::array<ExportKind, kKindCount>;

/// Wire, boom, polygon, point: everywhere, also on screen, they come in this order.
extern const ExportKinds kExportKinds;

/// The kinds that are made when they are asked for by name, behind the others, and are not on
/// screen. One more is one more line of this table.
extern const std::span<const ExportKind> kNamedKinds;

/// All kinds, the named ones last.
std::vector<const ExportKind*> AllKinds();

}  // namespace kestrin::exports
