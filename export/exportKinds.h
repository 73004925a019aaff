#pragma once

#include <array>
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
};

inline constexpr int kKindCount = 4;
using ExportKinds = std::array<ExportKind, kKindCount>;

/// Wire, boom, polygon, point: everywhere, also on screen, they come in this order.
extern const ExportKinds kExportKinds;

/// The ground really covered: made when it is asked for by name, and not on screen.
extern const ExportKind kNetKind;

}  // namespace kestrin::exports
