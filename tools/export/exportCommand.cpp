#include "tools/export/exportCommand.h"

#include <atomic>
#include <memory>

#include "geo/monthNames.h"
#include "geo/timeZone.h"
#include "jobstore/runHost.h"
#include "tools/export/exitCode.h"
#include "tools/export/interruption.h"
#include "tools/export/jobPlan.h"
#include "tools/export/jobRun.h"
#include "tools/export/workers.h"

namespace kestrin {

int RunExports(const ExportOptions& options, Console& console) {
  const DateRules dates{TimeZoneOffset(), UserMonthNames()};
  const std::unique_ptr<FileSystem> files = NativeFileSystem();

  // All targets are known before the first set is made: otherwise it would hang on
  // which job comes first, and whose sets are left would be chance.
  std::vector<JobPlan> plans(options.jobPaths.size());
  WorkOff(plans.size(), options.jobs, [&](std::size_t i) {
    if (StopSignal() != 0) throw RunCancelled();
    plans[i] = PlanJob(options.jobPaths[i], options, dates);
  });
  RefuseSharedTargets(plans);

  std::atomic<bool> complete{true};
  WorkOff(plans.size(), options.jobs, [&](std::size_t i) {
    if (!RunJob(plans[i], options, *files, console)) complete = false;
  });
  if (!console.ResultsArrived()) {
    console.Complain("the results could not be written to stdout");
    return kSomeNotMade;
  }
  return complete ? kAllMade : kSomeNotMade;
}

}  // namespace kestrin
