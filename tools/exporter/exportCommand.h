#pragma once

#include "tools/exporter/commandLine.h"
#include "tools/exporter/console.h"

namespace kestrin::exporter {

/// Exports every job of the options and returns the exit code: kAllMade or
/// kSomeNotMade. Throws RunCancelled when the process is asked to stop.
int RunExports(const ExportOptions& options, Console& console);

}  // namespace kestrin::exporter
