#pragma once

#include <string>

#include "export/exportRun.h"

namespace kestrin::point {

/// Writes every GPS row of a job as a point, with all that is known of that instant: time,
/// position, attitude, the implement and its sections, products and rates (the table's layout:
/// docs/shapefiles.md). What changes in time applies from exactly its own time on, and its first
/// row from the start; only the last of several implement rows never applies. Records are
/// written as rows are read. The set's old files go first, in every case.
///
/// Without a path of the set or of the job, a reference location or a GPS row, no set is made
/// and nothing said. A rate, product or implement table that cannot be queried is left out
/// without a word.
/// Failure: a job that cannot be opened, and a query of the locations or of the GPS rows that
/// cannot be prepared, is told to the host, and no set is made; a file that cannot be written
/// throws base::FileError.
exports::ExportOutcome ExportPointShape(const std::string& basePath, const std::string& jobPath,
                                        exports::ExportRun& run);

}  // namespace kestrin::point
