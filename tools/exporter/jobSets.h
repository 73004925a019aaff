#pragma once

#include <cstddef>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "base/crew.h"
#include "base/fileSystem.h"
#include "tools/exporter/commandLine.h"
#include "tools/exporter/console.h"
#include "tools/exporter/jobPlan.h"
#include "tools/exporter/report.h"
#include "tools/exporter/setHost.h"

namespace kestrin::exporter {

/// What the sets of all jobs of a run are made with. All of it outlives them.
struct Workshop {
  const ExportOptions& options;
  base::FileSystem& files;
  base::Crew& crew;
  Console& console;
  Report& report;
};

/// The asked sets of one job. Kinds may be made side by side, each by any thread. What comes of
/// them is reported in the order of the kinds: a set when those before it have ended, failures
/// when all have, since one line tells what every kind says.
class JobSets {
 public:
  /// The plan must outlive it.
  JobSets(const JobPlan& plan, const Workshop& shop)
      : plan_(plan), shop_(shop), ended_(shop.options.kinds.size()) {}
  /// Reports what was not, as a run that was stopped never began other kinds.
  ~JobSets();
  JobSets(const JobSets&) = delete;
  JobSets& operator=(const JobSets&) = delete;

  /// Makes the set of the kind of that number. Throws RunCancelled when the process is asked to
  /// stop; what was half made is gone then.
  void Make(std::size_t kind);

  /// Whether all are there and complete.
  bool AreComplete() const;

 private:
  struct Ended {
    std::optional<MadeSet> made;
    std::vector<std::string> texts;
  };

  std::optional<MadeSet> Try(const exports::ExportKind& kind, SetHost& host);
  std::optional<MadeSet> MakeSet(const exports::ExportKind& kind, SetHost& host);
  void End(std::size_t kind, Ended ended);
  void TellSet(std::size_t kind) const;
  void TellFailures() const;

  const JobPlan& plan_;
  const Workshop& shop_;
  std::mutex mutex_;
  std::vector<std::optional<Ended>> ended_;  // by kind
  std::size_t next_ = 0;                     // whose set is to tell
};

}  // namespace kestrin::exporter
