#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "export/exportRun.h"

namespace kestrin::exports {

/// A kind of shapefile sets.
struct ExportKind {
  std::string_view name;    ///< as a command line names it
  std::string_view suffix;  ///< what it adds to a base path
  ExportOutcome (*procedure)(const std::string& basePath, const std::string& jobPath,
                             ExportRun& run);
  std::string_view purpose{};  ///< of a named kind: what the command's help says it is
};

inline constexpr int kKindCount = 4;
using ExportKinds = std::array<ExportKind, kKindCount>;

/// Wire, boom, polygon, point: everywhere, also on screen, they come in this order.
extern const ExportKinds kExportKinds;

/// The kinds that are made when they are asked for by name, behind the others, and are not on
/// screen. One more is one more line of this table.
extern const std::span<const ExportKind> kNamedKinds;

}  // namespace kestrin::exports
