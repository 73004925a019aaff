#include "tools/exporter/jobSets.h"

#include <exception>
#include <utility>

#include "export/exportKinds.h"
#include "export/outcomeTexts.h"
#include "export/setNames.h"
#include "jobstore/sqliteDefs.h"

namespace kestrin::exporter {

JobSets::JobSets(const JobPlan& plan, const Workshop& shop)
    : plan_(plan),
      shop_(shop),
      ended_(shop.options.kinds.size()),
      failures_(shop.report, plan.jobPath, shop.options.kinds.size()) {}

JobSets::~JobSets() {
  for (std::size_t kind = next_; kind < ended_.size(); ++kind) Tell(kind);
  failures_.Finish();
}

void JobSets::Make(std::size_t kind) {
  const exports::ExportKind& made = *shop_.options.kinds[kind];
  SetHost host(shop_.console, made.name, plan_.jobPath, plan_.rows);
  try {
    std::optional<MadeSet> set = Try(made, host);
    End(kind, {std::move(set), host.Texts()});
  } catch (const base::RunCancelled&) {
    End(kind, {{}, host.Texts()});
    throw;
  }
}

/// An error that ends it is said by the host. Only a stop passes through.
std::optional<MadeSet> JobSets::Try(const exports::ExportKind& kind, SetHost& host) {
  try {
    host.Yield();
    if (plan_.obstacle.empty()) return MakeSet(kind, host);
    host.ShowMessage(plan_.obstacle);
  } catch (const base::RunCancelled&) {
    throw;
  } catch (const base::FileError& error) {
    host.ShowMessage(exports::NotWrittenText(error));
  } catch (const std::exception& error) {
    host.ShowMessage(exports::NotMadeText(kind.name, error));
  }
  return std::nullopt;
}

std::optional<MadeSet> JobSets::MakeSet(const exports::ExportKind& kind, SetHost& host) {
  const std::string setBase = plan_.basePath + std::string(kind.suffix);
  exports::ExportRun run{host,
                         shop_.files,
                         {.withProjection = shop_.options.prj},
                         shop_.options.allSections,
                         &shop_.crew};
  const std::string folder = base::SplitAtLastSeparator(setBase).folder;
  if (!folder.empty()) base::MakePath(shop_.files, folder);
  const exports::ExportOutcome outcome = kind.procedure(setBase, plan_.jobPath, run);
  if (outcome.lastStep != jobstore::kDone) {
    host.ShowMessage(exports::NotReadToEndText(outcome, plan_.rows));
  } else if (!outcome.made && host.Texts().empty()) {
    host.ShowMessage(exports::kNothingToExport + outcome.summary);
  }
  if (!outcome.made) return std::nullopt;
  return MadeSet{plan_.jobPath, kind.name, setBase + std::string(exports::kShapeExtension),
                 outcome};
}

void JobSets::End(std::size_t kind, Ended ended) {
  const std::scoped_lock lock(mutex_);
  ended_[kind] = std::move(ended);
  while (next_ < ended_.size() && ended_[next_]) Tell(next_++);
  if (next_ == ended_.size()) failures_.Finish();
}

void JobSets::Tell(std::size_t kind) {
  if (!ended_[kind]) return;
  const Ended ended = *std::exchange(ended_[kind], std::nullopt);
  if (ended.made) shop_.report.Made(*ended.made);
  failures_.Add(shop_.options.kinds[kind]->name, ended.texts);
}

}  // namespace kestrin::exporter
