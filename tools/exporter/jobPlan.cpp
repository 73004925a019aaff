#include "tools/exporter/jobPlan.h"

#include <exception>
#include <map>

#include "base/nameKey.h"
#include "export/outcomeTexts.h"
#include "export/setNames.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin::exporter {
namespace {

std::string DefaultBase(const JobPlan& plan, jobstore::GpsKey newest, const ExportOptions& options,
                        const DateRules& dates) {
  const std::string name = exports::FileSafeName(exports::JobNameOf(plan.jobPath).name);
  const std::string date = geo::DateText(geo::LocalTimeOf(newest, dates.zoneOffset), dates.months);
  return exports::DefaultBasePath(
      exports::ExportFolder(base::WithSeparator(options.out), name, date), name, date);
}

void FindDefaultBase(jobstore::Job& job, JobPlan& plan, const ExportOptions& options,
                     const DateRules& dates) {
  jobstore::GpsKey newest;
  jobstore::Query<jobstore::NewestEpoch> query(job);
  if (!job.IsOpen()) {
    plan.obstacle = exports::NotOpenedText(job.Result());
  } else if (!query.Prepared()) {
    plan.obstacle = exports::NotPreparedText(query.Result());
  } else if (query.Next(newest)) {
    plan.basePath = DefaultBase(plan, newest, options, dates);
  } else if (query.LastStep() != jobstore::kDone) {
    plan.obstacle = exports::NotReadToEndText({.lastStep = query.LastStep()}, plan.rows);
  } else {
    plan.obstacle = exports::kNothingToExport;
  }
}

}  // namespace

JobPlan PlanJob(const std::string& jobPath, const ExportOptions& options, const DateRules& dates) {
  JobPlan plan;
  plan.jobPath = jobPath;
  plan.basePath = options.base;
  try {
    jobstore::Job job(jobPath);
    std::int32_t count = 0;
    if (job.IsOpen() && jobstore::ReadFirst<jobstore::EpochCount>(job, count)) plan.rows = count;
    if (options.base.empty() && !options.summary) FindDefaultBase(job, plan, options, dates);
  } catch (const std::exception& error) {
    plan.obstacle = error.what();
  }
  return plan;
}

void RefuseSharedTargets(std::vector<JobPlan>& plans) {
  std::map<std::string, const JobPlan*> taken;
  for (JobPlan& plan : plans) {
    if (!plan.obstacle.empty()) continue;
    const auto [holder, isNew] = taken.emplace(base::NameKey(plan.basePath), &plan);
    if (!isNew) {
      plan.obstacle = "its sets would take the names of those of " + holder->second->jobPath;
    }
  }
}

}  // namespace kestrin::exporter
