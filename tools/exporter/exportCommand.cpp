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
#include "tools/exporter/jobSearch.h"
#include "tools/exporter/workers.h"

namespace kestrin::exporter {

namespace {

std::vector<JobPlan> PlanJobs(const std::vector<std::string>& jobPaths,
                              const ExportOptions& options, const DateRules& dates) {
  // All targets are known before the first set is made: otherwise it would hang on
  // which job comes first, and whose sets are left would be chance.
  std::vector<JobPlan> plans(jobPaths.size());
  WorkOff(plans.size(), options.jobs, [&](std::size_t i) {
    if (StopSignal() != 0) throw base::RunCancelled();
    plans[i] = PlanJob(jobPaths[i], options, dates);
  });
  if (!options.summary) RefuseSharedTargets(plans);
  return plans;
}

std::int64_t RowsToCome(const std::vector<JobPlan>& plans, const ExportOptions& options) {
  std::int64_t rows = 0;
  for (const JobPlan& plan : plans) rows += plan.rows;
  return rows * (options.summary ? kSummaryWalks : static_cast<int>(options.kinds.size()));
}

}  // namespace

int RunExports(const ExportOptions& options, Console& console) {
  const DateRules dates{geo::TimeZoneOffset(), geo::UserMonthNames()};
  const std::unique_ptr<base::FileSystem> files = base::NativeFileSystem();
  Report report(console, {.json = options.json, .quiet = options.quiet});

  const FoundJobs found = FindJobs(options.jobPaths, options.recursive);
  for (const Failure& failure : found.failures) report.Fail(failure);
  const std::vector<JobPlan> plans = PlanJobs(found.paths, options, dates);
  console.Expect(RowsToCome(plans, options));

  std::atomic<bool> complete{found.failures.empty()};
  WorkOff(plans.size(), options.jobs, [&](std::size_t i) {
    const bool whole = options.summary ? SumUpJob(plans[i], dates, console, report)
                                       : RunJob(plans[i], options, *files, console, report);
    if (!whole) complete = false;
  });
  if (!console.ResultsArrived()) {
    console.Complain("the results could not be written to stdout");
    return kSomeNotMade;
  }
  return complete ? kAllMade : kSomeNotMade;
}

}  // namespace kestrin::exporter
