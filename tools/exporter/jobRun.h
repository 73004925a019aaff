#pragma once

#include "base/fileSystem.h"
#include "tools/exporter/commandLine.h"
#include "tools/exporter/console.h"
#include "tools/exporter/jobPlan.h"

namespace kestrin::exporter {

/// Makes the asked sets of one job, in the order of the kinds, and says on the
/// console how each ended. True when all are there and complete. Throws RunCancelled
/// when the process is asked to stop; what was half made is gone then.
bool RunJob(const JobPlan& plan, const ExportOptions& options, base::FileSystem& files,
            Console& console);

}  // namespace kestrin::exporter
