#pragma once

#include <array>
#include <string>
#include <string_view>

#include "export/exportRun.h"

namespace kestrin::exports {

/// One of the four kinds of shapefile sets. Everywhere, also on screen, they come
/// in this order.
struct ExportKind {
  std::string_view name;    ///< as a command line names it
  std::string_view suffix;  ///< what it adds to a base path
  ExportOutcome (*procedure)(const std::string& basePath, const std::string& jobPath,
                             ExportRun& run);
};

inline constexpr int kKindCount = 4;
using ExportKinds = std::array<ExportKind, kKindCount>;

/// Wire, boom, polygon, point.
extern const ExportKinds kExportKinds;

}  // namespace kestrin::exports
