#pragma once

#include "export/fileSystem.h"
#include "tools/export/commandLine.h"
#include "tools/export/console.h"
#include "tools/export/jobPlan.h"

namespace kestrin {

/// Makes the asked sets of one job, in the order of the kinds, and says on the
/// console how each ended. True when all are there and complete. Throws RunCancelled
/// when the process is asked to stop; what was half made is gone then.
bool RunJob(const JobPlan& plan, const ExportOptions& options, FileSystem& files, Console& console);

}  // namespace kestrin
