#pragma once

#include <array>
#include <string>

#include "export/exportRun.h"
#include "shapefile/attributeTable.h"

namespace kestrin::wire {

extern const std::array<shapefile::Field, 2> kFields;

/// Writes the driven path of a job as a polyline set: a record per stretch, its length in
/// metres of the UTM plane as METERS. A stretch begins at each row whose `type` has the value
/// 16384 in it, and at the first row. The set's old files go first, in every case.
///
/// Without a path of the set or of the job, a reference location or a GPS row, no set is made
/// and nothing said.
/// Failure: a job that cannot be opened, and either query that cannot be prepared, is told to
/// the host, and no set is made; a file that cannot be written throws base::FileError.
exports::ExportOutcome ExportWireShape(const std::string& basePath, const std::string& jobPath,
                                       exports::ExportRun& run);

}  // namespace kestrin::wire
