#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "app/flow/commandScreen.h"
#include "base/fileSystem.h"
#include "base/runHost.h"
#include "export/exportKinds.h"
#include "export/setNames.h"

namespace kestrin::flow {

/// What a window knows of its job, as far as exporting goes.
struct ExportState {
  std::string jobFolder;     ///< folder last used by the job dialog, ending in a separator
  std::string jobName;       ///< without folder and ".sqlite"; empty while there is none
  std::string fileSafeName;  ///< the job name with every "." replaced by "_"
  std::string dateText;      ///< day of the job's last GPS time, such as "2006Jun15"
  std::string exportFolder;  ///< data folder + file-safe name + separator + date text
  /// Whether the set of the default name exists, per kind.
  std::array<bool, exports::kKindCount> shapeExists{};
  /// False while an export command runs: a click on either then does nothing.
  bool idle = true;

  /// Path of the job file.
  std::string JobPath() const { return jobFolder + jobName + std::string(exports::kJobExtension); }
};

/// Path of a set under its default name, without extension. `suffix` is its kind's.
std::string DefaultBasePath(const ExportState& state, std::string_view suffix,
                            char separator = base::kSeparator);

/// The commands behind the four kinds' buttons and "CREATE ALL": ask for a name,
/// run the exports, say per kind whether its set now exists, copy the job beside
/// the sets.
///
/// A set that cannot be written is said in a box with path and reason, and the next
/// kind follows. Any other run-time error ends the command, which only restores the
/// controls. RunCancelled passes through untouched: no control is restored and the
/// idle flag stays false, because the window is about to close; the exports have
/// removed what was unfinished.
class ExportCommands {
 public:
  using Kinds = std::array<exports::ExportKind, exports::kKindCount>;

  /// All must outlive the commands.
  ExportCommands(ExportState& state, CommandScreen& screen, base::FileSystem& files,
                 base::RunHost& host, const Kinds& kinds, char separator = base::kSeparator)
      : state_(state),
        screen_(screen),
        files_(files),
        host_(host),
        kinds_(kinds),
        separator_(separator) {}

  /// Exports kind 0 to 3 under the name chosen.
  void Command1_Click(int kind);

  /// Exports all kinds, each under the name chosen + its suffix.
  void Command2_Click();

 private:
  struct Target;

  template <class KeepEnabled, class Body>
  void Run(KeepEnabled keepEnabled, Body body);
  bool JobIsThere();
  std::string StartFolder();
  std::optional<Target> AskTarget(const std::string& startFolder, std::string_view suffix);
  void ExportOne(int kind, const std::string& startFolder);
  void ExportAll(const std::string& startFolder);
  void Export(int kind, const std::string& basePath);
  bool RunProcedure(int kind, const std::string& basePath);
  void CopyJob(const std::string& folder);

  ExportState& state_;
  CommandScreen& screen_;
  base::FileSystem& files_;
  base::RunHost& host_;
  const Kinds& kinds_;
  char separator_;
};

}  // namespace kestrin::flow
