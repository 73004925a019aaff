#pragma once

#include "tools/export/commandLine.h"
#include "tools/export/console.h"

namespace kestrin {

/// Exports every job of the options and returns the exit code: kAllMade or
/// kSomeNotMade. Throws RunCancelled when the process is asked to stop.
int RunExports(const ExportOptions& options, Console& console);

}  // namespace kestrin
