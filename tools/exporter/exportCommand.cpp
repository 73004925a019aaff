#include "tools/exporter/exportCommand.h"

#include <atomic>
#include <memory>

#include "base/runHost.h"
#include "geo/monthNames.h"
#include "geo/timeZone.h"
#include "tools/exporter/exitCode.h"
#include "tools/exporter/interruption.h"
#include "tools/exporter/jobPlan.h"
#include "tools/exporter/jobRun.h"
#include "tools/exporter/workers.h"

namespace kestrin::exporter {

int RunExports(const ExportOptions& options, Console& console) {
  const DateRules dates{geo::TimeZoneOffset(), geo::UserMonthNames()};
  const std::unique_ptr<base::FileSystem> files = base::NativeFileSystem();

  // All targets are known before the first set is made: otherwise it would hang on
  // which job comes first, and whose sets are left would be chance.
  std::vector<JobPlan> plans(options.jobPaths.size());
  WorkOff(plans.size(), options.jobs, [&](std::size_t i) {
    if (StopSignal() != 0) throw base::RunCancelled();
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

}  // namespace kestrin::exporter
