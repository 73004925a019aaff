#include "tools/exporter/jobRun.h"

#include <exception>

#include "export/exportKinds.h"
#include "export/outcomeTexts.h"
#include "export/setNames.h"
#include "jobstore/sqliteDefs.h"
#include "tools/exporter/jobFailures.h"
#include "tools/exporter/setHost.h"

namespace kestrin::exporter {
namespace {

void MakeSet(const exports::ExportKind& kind, const JobPlan& plan, const ExportOptions& options,
             base::FileSystem& files, SetHost& host, Report& report) {
  const std::string setBase = plan.basePath + std::string(kind.suffix);
  exports::ExportRun run{host, files, {.withProjection = options.prj}, options.allSections};
  const std::string folder = base::SplitAtLastSeparator(setBase).folder;
  if (!folder.empty()) base::MakePath(files, folder);
  const exports::ExportOutcome outcome = kind.procedure(setBase, plan.jobPath, run);
  if (outcome.made) {
    report.Made(
        {plan.jobPath, kind.name, setBase + std::string(exports::kShapeExtension), outcome});
  }
  if (outcome.lastStep != jobstore::kDone) {
    host.ShowMessage(exports::NotReadToEndText(outcome, plan.rows));
  } else if (!outcome.made && host.Texts().empty()) {
    host.ShowMessage(exports::kNothingToExport + outcome.summary);
  }
}

/// The same, with an error that ends it said by the host. Only a stop passes through.
void TryToMakeSet(const exports::ExportKind& kind, const JobPlan& plan,
                  const ExportOptions& options, base::FileSystem& files, SetHost& host,
                  Report& report) {
  try {
    host.Yield();
    if (!plan.obstacle.empty()) return host.ShowMessage(plan.obstacle);
    MakeSet(kind, plan, options, files, host, report);
  } catch (const base::RunCancelled&) {
    throw;
  } catch (const base::FileError& error) {
    host.ShowMessage(exports::NotWrittenText(error));
  } catch (const std::exception& error) {
    host.ShowMessage(exports::NotMadeText(kind.name, error));
  }
}

}  // namespace

bool RunJob(const JobPlan& plan, const ExportOptions& options, base::FileSystem& files,
            Console& console, Report& report) {
  JobFailures failures(report, plan.jobPath, options.kinds.size());
  for (const exports::ExportKind* kind : options.kinds) {
    SetHost host(console, kind->name, plan.jobPath, plan.rows);
    try {
      TryToMakeSet(*kind, plan, options, files, host, report);
    } catch (const base::RunCancelled&) {
      failures.Add(kind->name, host.Texts());
      failures.Finish();
      throw;
    }
    failures.Add(kind->name, host.Texts());
  }
  failures.Finish();
  return !failures.Any();
}

bool SumUpJob(const JobPlan& plan, const DateRules& dates, Console& console, Report& report) {
  SetHost host(console, "summary", plan.jobPath, plan.rows * kSummaryWalks);
  try {
    host.Yield();
    if (const auto summary = Summarise(plan.jobPath, dates, host)) report.Summed(*summary);
  } catch (const base::RunCancelled&) {
    throw;
  } catch (const std::exception& error) {
    host.ShowMessage(error.what());
  }
  for (const std::string& text : host.Texts()) report.Fail({plan.jobPath, false, {}, text});
  return host.Texts().empty();
}

}  // namespace kestrin::exporter
