#pragma once

#include "base/fileSystem.h"
#include "tools/exporter/commandLine.h"
#include "tools/exporter/console.h"
#include "tools/exporter/jobPlan.h"
#include "tools/exporter/report.h"

namespace kestrin::exporter {

/// Makes the asked sets of one job, in the order of the kinds, and reports how each ended.
/// True when all are there and complete. Throws RunCancelled when the process is asked to
/// stop; what was half made is gone then.
bool RunJob(const JobPlan& plan, const ExportOptions& options, base::FileSystem& files,
            Console& console, Report& report);

/// Reports what is to be known of one job without a set. True when all of it could be read.
/// Throws RunCancelled.
bool SumUpJob(const JobPlan& plan, const DateRules& dates, Console& console, Report& report);

}  // namespace kestrin::exporter
