#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/flow/controlRules.h"
#include "app/flow/ports.h"
#include "app/flow/windowHost.h"
#include "app/flow/windowState.h"
#include "export/exportKinds.h"

namespace kestrin::flow {

/// The commands behind the four kinds' buttons and "CREATE ALL": ask for a name,
/// run the exports, say per kind whether its set now exists, copy the job beside
/// the sets.
///
/// Whatever the user cannot see the reason of is said in a box, once. A set that cannot be
/// written, a job with nothing to export and one that could not be read to its end are said,
/// and the next kind follows. A job that is gone when the command starts and any other
/// run-time error, that of the job's copy included, end the command, which then only restores
/// the controls. RunCancelled passes through untouched: no control is restored and the
/// idle flag stays false, because the window is about to close; the exports have
/// removed what was unfinished.
class ExportCommands {
 public:
  /// All must outlive the commands.
  ExportCommands(ExportState& state, const Progress& progress, const Ports& ports,
                 ControlRules& rules, WindowHost& host, const exports::ExportKinds& kinds)
      : state_(state),
        progress_(progress),
        ports_(ports),
        rules_(rules),
        host_(host),
        kinds_(kinds) {}

  /// Exports kind 0 to 3 under the name chosen.
  void Command1_Click(int kind);

  /// Exports all kinds, each under the name chosen + its suffix.
  void Command2_Click();

 private:
  template <class Body>
  void Run(ControlId clicked, Body body);
  bool JobIsThere();
  std::string StartFolder();
  std::optional<std::string> AskBasePath(std::string_view suffix);
  void ExportOne(int kind);
  void ExportAll();
  void Export(int kind, const std::string& basePath);
  bool RunProcedure(const exports::ExportKind& kind, const std::string& basePath);
  void CopyJob(const std::string& basePath);

  ExportState& state_;
  const Progress& progress_;
  Ports ports_;
  ControlRules& rules_;
  WindowHost& host_;
  const exports::ExportKinds& kinds_;
};

}  // namespace kestrin::flow
