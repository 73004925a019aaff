#pragma once

#include <string>

#include "export/exportRun.h"

namespace kestrin::coverage {

/// Writes the ground covered by the implement as a polygon set: a record per ring,
/// its area in the UTM plane as ACRES. A polygon begins at the first row, at each
/// row whose `type` has bit 16384, and at each row whose way from the row before
/// meets the way already driven in the same polygon. A row that moves neither end of
/// the implement is passed over.
///
/// Fewer than four rows accepted, or no ring of three distinct points, make no set.
/// The set's old files go first, in every case. Memory grows with the rows of one
/// polygon. Without an implement table the width is 0.
exports::ExportOutcome ExportPolyShape(const std::string& basePath, const std::string& jobPath,
                                       exports::ExportRun& run);

}  // namespace kestrin::coverage
