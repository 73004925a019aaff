#pragma once

#include <string>

#include "export/exportRun.h"

namespace kestrin::boom {

/// Writes the boom sections of a job as a polyline set: at every GPS epoch a cross-line along
/// each section of the implement in force, whatever the section switches say. A record holds
/// the cross-lines of one period of the job's change timeline (Timeline) that share their
/// actual rates; its attributes are the implement, and product, target and actual rate of each
/// slot. The set's old files go first, in every case. A job that has a reference location gets
/// its files, also when they hold no record.
///
/// All cross-lines are held in memory until they are written, 16 bytes a point.
/// Failure: a job that cannot be opened is told to the host, and no set is made. A table that
/// cannot be queried is told and left out; the GPS rows are told once per period, the actual
/// rates not at all. Without a reference location, and when a record without any cross-line
/// before it is taken up again (Records), throws exports::SubscriptError and leaves no files; a
/// file that cannot be written throws base::FileError.
exports::ExportOutcome ExportBoomShape(const std::string& basePath, const std::string& jobPath,
                                       exports::ExportRun& run);

}  // namespace kestrin::boom
