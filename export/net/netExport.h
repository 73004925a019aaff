#pragma once

#include <string>

#include "export/exportRun.h"

namespace kestrin::net {

/// Writes the ground that a job has really covered as a polygon set: overlap counts once. A
/// record is a connected piece of it, with the lines of its holes as further parts; the largest
/// comes first. ACRES is the piece's area in the UTM plane; GROSS, of the whole job, the ground
/// swept, every pass counted, in acres; OVERLAP the per cent of that which was covered before.
///
/// Between two rows of a stretch the ground under the sections that are on at both counts; the
/// width in force is the implement row's own (Track, Setup). Where the job has no section on at
/// any row, or `run.allSections`, the full width counts.
///
/// The outcome's summary says the figures, and what was left out because it cannot be true. A
/// job without ground makes no set. The set's old files go first, in every case. Memory grows
/// with the rows: 300 to 600 bytes each with 16 sections.
/// Failure: a job that cannot be opened is told to the host, and no set is made. A table that
/// cannot be queried is told and left out. A file that cannot be written throws base::FileError.
exports::ExportOutcome ExportNetShape(const std::string& basePath, const std::string& jobPath,
                                      exports::ExportRun& run);

}  // namespace kestrin::net
