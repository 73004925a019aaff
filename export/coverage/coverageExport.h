#pragma once

#include <string>

#include "export/exportRun.h"

namespace kestrin::coverage {

/// Writes the ground covered by the implement as a polygon set: a record per ring,
/// its area in the UTM plane as ACRES. A polygon begins at the first row, at each
/// row whose `type` has the value 16384 in it, and at each row whose way from the row before
/// meets the way already driven in the same polygon. A row that moves neither end of
/// the implement is passed over, unless it is marked so.
///
/// Fewer than four rows accepted, or no ring of three distinct points, make no set.
/// The set's old files go first, in every case. Memory grows with the rows of one
/// polygon; with several threads, of two for each.
/// Failure: a job that cannot be opened is told to the host, and no set is made. A table that
/// cannot be queried is told and left out: without implements the width is 0, without a
/// reference location or GPS rows no set is made. A file that cannot be written throws
/// base::FileError, a geometry library that does not start ground::GeometryError.
exports::ExportOutcome ExportPolyShape(const std::string& basePath, const std::string& jobPath,
                                       exports::ExportRun& run);

}  // namespace kestrin::coverage
