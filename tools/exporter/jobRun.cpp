#include "tools/exporter/jobRun.h"

#include <exception>

#include "export/exportKinds.h"
#include "export/outcomeTexts.h"
#include "export/setNames.h"
#include "jobstore/sqliteDefs.h"
#include "tools/exporter/interruption.h"

namespace kestrin::exporter {
namespace {

/// The terminal's side of one set being made.
class SetHost : public base::RunHost {
 public:
  SetHost(Console& console, const exports::ExportKind& kind, const JobPlan& plan)
      : console_(console),
        front_(plan.jobPath + ": " + std::string(kind.name) + ": "),
        set_(console.BeginSet(std::string(kind.name), exports::JobNameOf(plan.jobPath).name,
                              plan.rows)) {}
  ~SetHost() override { console_.EndSet(set_); }
  SetHost(const SetHost&) = delete;
  SetHost& operator=(const SetHost&) = delete;

  void CountRow() override {
    if ((++rows_ & kRowsBetweenShows) == 0) console_.ShowProgress(set_, rows_);
  }
  void Yield() override {
    if (StopSignal() != 0) throw base::RunCancelled();
  }
  void ShowMessage(const std::string& text) override { Complain(text); }

  void Complain(const std::string& text) {
    complained_ = true;
    console_.Complain(front_ + text);
  }
  bool Complained() const { return complained_; }

 private:
  static constexpr std::int64_t kRowsBetweenShows = 1023;  // a mask

  Console& console_;
  std::string front_;
  std::size_t set_;
  std::int64_t rows_ = 0;
  bool complained_ = false;
};

void Report(const exports::ExportOutcome& outcome, const std::string& setBase, const JobPlan& plan,
            SetHost& host, Console& console) {
  if (outcome.made) {
    console.Result(setBase + std::string(exports::kShapeExtension) + ": " +
                   std::to_string(outcome.epochs) + " epochs" +
                   (outcome.summary.empty() ? "" : ", " + outcome.summary));
  }
  if (outcome.lastStep != jobstore::kDone) {
    host.Complain(exports::NotReadToEndText(outcome, plan.rows));
  } else if (!outcome.made && !host.Complained()) {
    host.Complain(exports::kNothingToExport + outcome.summary);
  }
}

void MakeSet(const exports::ExportKind& kind, const JobPlan& plan, const ExportOptions& options,
             base::FileSystem& files, SetHost& host, Console& console) {
  const std::string setBase = plan.basePath + std::string(kind.suffix);
  exports::ExportRun run{host, files, {.withProjection = options.prj}, options.allSections};
  const std::string folder = base::SplitAtLastSeparator(setBase).folder;
  if (!folder.empty()) base::MakePath(files, folder);
  Report(kind.procedure(setBase, plan.jobPath, run), setBase, plan, host, console);
}

}  // namespace

bool RunJob(const JobPlan& plan, const ExportOptions& options, base::FileSystem& files,
            Console& console) {
  bool complete = true;
  for (const exports::ExportKind* kind : options.kinds) {
    SetHost host(console, *kind, plan);
    host.Yield();
    try {
      if (plan.obstacle.empty()) {
        MakeSet(*kind, plan, options, files, host, console);
      } else {
        host.Complain(plan.obstacle);
      }
    } catch (const base::RunCancelled&) {
      throw;
    } catch (const base::FileError& error) {
      host.Complain(exports::NotWrittenText(error));
    } catch (const std::exception& error) {
      host.Complain(exports::NotMadeText(kind->name, error));
    }
    complete = complete && !host.Complained();
  }
  return complete;
}

}  // namespace kestrin::exporter
