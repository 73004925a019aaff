#include "tools/exporter/jobSets.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "export/exportKinds.h"
#include "export/outcomeTexts.h"
#include "export/setNames.h"
#include "jobstore/sqliteDefs.h"

namespace kestrin::exporter {

JobSets::~JobSets() {
  if (next_ == ended_.size()) return;
  while (next_ < ended_.size()) TellSet(next_++);
  TellFailures();
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
  while (next_ < ended_.size() && ended_[next_]) TellSet(next_++);
  if (next_ == ended_.size()) TellFailures();
}

void JobSets::TellSet(std::size_t kind) const {
  if (ended_[kind] && ended_[kind]->made) shop_.report.Made(*ended_[kind]->made);
}

void JobSets::TellFailures() const {
  const auto& kinds = shop_.options.kinds;
  // What a kind says after its first text follows from that.
  const auto saysTheSame = [&](const std::optional<Ended>& ended) {
    return ended && !ended->texts.empty() && ended->texts[0] == ended_[0]->texts[0];
  };
  if (kinds.size() > 1 && std::ranges::all_of(ended_, saysTheSame)) {
    Failure failure{plan_.jobPath, false, {}, ended_[0]->texts[0]};
    for (const auto* kind : kinds) failure.kinds.push_back(kind->name);
    return shop_.report.Fail(failure);
  }
  for (std::size_t kind = 0; kind < kinds.size(); ++kind) {
    if (!ended_[kind]) continue;
    for (const std::string& text : ended_[kind]->texts) {
      shop_.report.Fail({plan_.jobPath, false, {kinds[kind]->name}, text});
    }
  }
}

bool JobSets::AreComplete() const {
  return std::ranges::all_of(ended_,
                             [](const auto& ended) { return ended && ended->texts.empty(); });
}

}  // namespace kestrin::exporter
