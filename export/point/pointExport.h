#pragma once

#include <string>

#include "export/exportRun.h"

namespace kestrin::point {

/// Writes every GPS row of a job as a point, with all that is known of that
/// instant: time, position, attitude, the implement and its sections, products and
/// rates (the table's layout: docs/shapefiles.md). What changes in time applies
/// from exactly its own time on, and its first row from the start; only the last of
/// several implement rows never applies. Records are written as rows are read. The
/// set's old files go first, in every case.
exports::ExportOutcome ExportPointShape(const std::string& basePath, const std::string& jobPath,
                                        exports::ExportRun& run);

}  // namespace kestrin::point
