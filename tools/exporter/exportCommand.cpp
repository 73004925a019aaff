#include "tools/exporter/exportCommand.h"

#include <algorithm>
#include <atomic>
#include <deque>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "base/crew.h"
#include "base/runHost.h"
#include "geo/monthNames.h"
#include "geo/timeZone.h"
#include "tools/exporter/exitCode.h"
#include "tools/exporter/interruption.h"
#include "tools/exporter/jobPlan.h"
#include "tools/exporter/jobSearch.h"
#include "tools/exporter/jobSets.h"
#include "tools/exporter/jobSummary.h"
#include "tools/exporter/setHost.h"

namespace kestrin::exporter {

namespace {

std::vector<JobPlan> PlanJobs(const std::vector<std::string>& jobPaths, const DateRules& dates,
                              const Workshop& shop) {
  // All targets are known before the first set is made: otherwise it would hang on
  // which job comes first, and whose sets are left would be chance.
  std::vector<JobPlan> plans(jobPaths.size());
  const std::vector<std::size_t> each(plans.size(), 1);
  shop.crew.WorkOff(each, shop.options.jobs, [&](std::size_t job, std::size_t) {
    if (StopSignal() != 0) throw base::RunCancelled();
    plans[job] = PlanJob(jobPaths[job], shop.options, dates);
  });
  if (!shop.options.summary) RefuseSharedTargets(plans);
  return plans;
}

std::int64_t RowsToCome(const std::vector<JobPlan>& plans, const ExportOptions& options) {
  std::int64_t rows = 0;
  for (const JobPlan& plan : plans) rows += plan.rows;
  return rows * (options.summary ? kSummaryWalks : static_cast<int>(options.kinds.size()));
}

/// True when all that was asked for is there and complete.
bool MakeSets(const std::vector<JobPlan>& plans, const Workshop& shop) {
  std::deque<JobSets> jobs;
  for (const JobPlan& plan : plans) jobs.emplace_back(plan, shop);
  const std::vector<std::size_t> kinds(jobs.size(), shop.options.kinds.size());
  shop.crew.WorkOff(kinds, shop.options.jobs,
                    [&](std::size_t job, std::size_t kind) { jobs[job].Make(kind); });
  return std::ranges::all_of(jobs, &JobSets::AreComplete);
}

/// The same of what is to be known of one job without a set.
bool SumUpJob(const JobPlan& plan, const DateRules& dates, const Workshop& shop) {
  SetHost host(shop.console, "summary", plan.jobPath, plan.rows * kSummaryWalks);
  try {
    host.Yield();
    if (const auto summary = Summarise(plan.jobPath, dates, host, shop.crew)) {
      shop.report.Summed(*summary);
    }
  } catch (const std::exception& error) {
    host.ShowMessage(error.what());
  }
  for (const std::string& text : host.Texts()) shop.report.Fail({plan.jobPath, false, {}, text});
  return host.Texts().empty();
}

/// The same of all jobs.
bool SumUp(const std::vector<JobPlan>& plans, const DateRules& dates, const Workshop& shop) {
  std::atomic<bool> complete{true};
  const std::vector<std::size_t> each(plans.size(), 1);
  shop.crew.WorkOff(each, shop.options.jobs, [&](std::size_t job, std::size_t) {
    if (!SumUpJob(plans[job], dates, shop)) complete = false;
  });
  return complete;
}

}  // namespace

int RunExports(const ExportOptions& options, Console& console) {
  const DateRules dates{geo::TimeZoneOffset(), geo::UserMonthNames()};
  const std::unique_ptr<base::FileSystem> files = base::NativeFileSystem();
  base::Crew crew(options.threads);
  Report report(console, {.json = options.json, .quiet = options.quiet});
  const Workshop shop{options, *files, crew, console, report};

  const FoundJobs found = FindJobs(options.jobPaths, options.recursive);
  for (const Failure& failure : found.failures) report.Fail(failure);
  const std::vector<JobPlan> plans = PlanJobs(found.paths, dates, shop);
  console.Expect(RowsToCome(plans, options));
  const bool complete = options.summary ? SumUp(plans, dates, shop) : MakeSets(plans, shop);
  if (!console.ResultsArrived()) {
    console.Complain("the results could not be written to stdout");
    return kSomeNotMade;
  }
  return complete && found.failures.empty() ? kAllMade : kSomeNotMade;
}

}  // namespace kestrin::exporter
