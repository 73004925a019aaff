#include "tools/export/jobPlan.h"

#include <exception>
#include <map>

#include "export/exportPaths.h"
#include "export/exportRun.h"
#include "export/nameKey.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tools/export/obstacles.h"

namespace kestrin {
namespace {

std::string DefaultBase(const JobPlan& plan, GpsKey newest, const ExportOptions& options,
                        const DateRules& dates) {
  const std::string name = FileSafeName(JobNameOf(plan.jobPath).name);
  const std::string date = DateText(LocalTimeOf(newest, dates.zoneOffset), dates.months);
  return WithSeparator(ExportFolder(WithSeparator(options.out), name, date)) + SetName(name, date);
}

void FindDefaultBase(Job& job, JobPlan& plan, const ExportOptions& options,
                     const DateRules& dates) {
  KeyRow newest;
  Query<NewestEpoch> query(job);
  if (!job.IsOpen()) {
    plan.obstacle = NotOpenedText(job.Handle());
  } else if (!query.Prepared()) {
    plan.obstacle = NotPreparedText(query.Handle());
  } else if (query.Next(newest)) {
    plan.basePath = DefaultBase(plan, newest.time, options, dates);
  } else if (query.LastStep() != sqliteDefs::kDone) {
    plan.obstacle = UnreadableRows(0, query.LastStep());
  } else {
    plan.obstacle = kNothingToExport;
  }
}

}  // namespace

JobPlan PlanJob(const std::string& jobPath, const ExportOptions& options, const DateRules& dates) {
  JobPlan plan;
  plan.jobPath = jobPath;
  plan.basePath = options.base;
  try {
    Job job(jobPath);
    CountRow count;
    if (job.IsOpen() && ReadFirst<EpochCount>(job, count)) plan.rows = count.count;
    if (options.base.empty()) FindDefaultBase(job, plan, options, dates);
  } catch (const std::exception& error) {
    plan.obstacle = error.what();
  }
  return plan;
}

void RefuseSharedTargets(std::vector<JobPlan>& plans) {
  std::map<std::string, const JobPlan*> taken;
  for (JobPlan& plan : plans) {
    if (!plan.obstacle.empty()) continue;
    const auto [holder, isNew] = taken.emplace(NameKey(plan.basePath), &plan);
    if (!isNew) {
      plan.obstacle = "its sets would take the names of those of " + holder->second->jobPath;
    }
  }
}

}  // namespace kestrin
