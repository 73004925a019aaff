#include "app/flow/exportCommands.h"

#include <exception>
#include <stdexcept>

#include "app/flow/warnings.h"
#include "base/text.h"
#include "export/outcomeTexts.h"
#include "export/setNames.h"
#include "jobstore/opening/jobCopy.h"
#include "jobstore/sqliteDefs.h"
#include "shapefile/shapefileSet.h"

namespace kestrin::flow {
namespace {

using enum Control;

std::size_t At(int kind) { return static_cast<std::size_t>(kind); }

}  // namespace

void ExportCommands::Command1_Click(int kind) {
  Run({kExport, kind}, [this, kind] { ExportOne(kind); });
}

void ExportCommands::Command2_Click() {
  Run({kCreateAll}, [this] { ExportAll(); });
}

template <class Body>
void ExportCommands::Run(ControlId clicked, Body body) {
  if (!state_.idle) return;
  state_.idle = false;
  rules_.SetControlsEnabled(false, true);
  ports_.controls.SetEnabled(clicked, true);
  try {
    if (JobIsThere()) body();
  } catch (const std::exception& error) {
    ports_.dialogs.ShowMessage(error.what());
  }
  rules_.SetControlsEnabled(true, false);
  state_.idle = true;
}

bool ExportCommands::JobIsThere() {
  if (state_.jobName.empty()) return false;
  if (ports_.files.Exists(state_.JobPath())) return true;
  throw std::runtime_error("Error opening: " + state_.JobPath() + ": the file is no longer there");
}

std::string ExportCommands::StartFolder() {
  try {
    base::MakePath(ports_.files, state_.exportFolder);
    return state_.exportFolder;
  } catch (const base::FileError&) {
    return ports_.dialogs.DocumentsFolder();
  }
}

std::optional<std::string> ExportCommands::AskBasePath(std::string_view suffix) {
  const std::string proposed = base::SplitAtLastSeparator(state_.DefaultBasePath(suffix)).name;
  const std::optional<std::string> chosen =
      ports_.dialogs.SaveFile({"Save Shape", StartFolder(), "Shape Files (*.shp)|*.shp",
                               proposed + std::string(exports::kShapeExtension)});
  if (!chosen || chosen->empty()) return std::nullopt;
  return base::Without(*chosen, exports::kShapeExtension);
}

void ExportCommands::ExportOne(int kind) {
  const auto basePath = AskBasePath(kinds_[At(kind)].suffix);
  if (!basePath) return;
  for (int i = 0; i < exports::kKindCount; ++i) {
    ports_.controls.SetBackColor({kExport, i}, Background::kButtonFace);
  }
  ports_.controls.SetEnabled({kCreateAllTimer}, false);
  ports_.controls.SetBackColor({kCreateAll}, Background::kButtonFace);
  ports_.controls.SetBackColor({kExport, kind}, Background::kWorking);
  ports_.events.DoEvents();
  // The flag speaks of the default name even when another one was chosen: users
  // count on being asked for every second export of a kind.
  if (state_.shapeExists[At(kind)] &&
      !ports_.dialogs.AskYesNo("Shape File already exists.  Do you want to overwrite it?")) {
    ports_.controls.SetBackColor({kExport, kind}, Background::kButtonFace);
    return;
  }
  ports_.controls.SetCaption({kSetState, kind}, "Creating Shape File");
  Export(kind, *basePath);
  CopyJob(*basePath);
}

void ExportCommands::ExportAll() {
  const auto basePath = AskBasePath("");
  if (!basePath) return;
  ports_.controls.SetEnabled({kCreateAllTimer}, false);
  ports_.controls.SetBackColor({kCreateAll}, Background::kWorking);
  for (int i = 0; i < exports::kKindCount; ++i) {
    ports_.controls.SetBackColor({kExport, i}, Background::kButtonFace);
    ports_.controls.SetCaption({kSetState, i}, "");
  }
  for (int i = 0; i < exports::kKindCount; ++i) {
    ports_.controls.SetCaption({kSetState, i}, "Creating Shape File");
    ports_.controls.SetBackColor({kExport, i}, Background::kWorking);
    ports_.controls.SetEnabled({kExport, i}, true);
    if (i > 0) ports_.controls.SetEnabled({kExport, i - 1}, false);
    Export(i, *basePath + std::string(kinds_[At(i)].suffix));
  }
  CopyJob(*basePath);
  ports_.controls.SetBackColor({kCreateAll}, Background::kSuccess);
  ports_.controls.SetEnabled({kCreateAllTimer}, true);
}

void ExportCommands::Export(int kind, const std::string& basePath) {
  rules_.ShowExportProgress(true, kind);
  ports_.events.DoEvents();
  const bool written = RunProcedure(kinds_[At(kind)], basePath);
  const bool exists = shapefile::SetExists(ports_.files, basePath);
  state_.shapeExists[At(kind)] = exists;
  // An old set that could not be replaced exists, but was not created.
  const bool created = written && exists;
  ports_.controls.SetCaption({kSetState, kind},
                             created ? "Shape File Created" : "Error Creating File");
  ports_.controls.SetBackColor({kExport, kind},
                               created ? Background::kSuccess : Background::kFailure);
  ports_.events.DoEvents();
}

bool ExportCommands::RunProcedure(const exports::ExportKind& kind, const std::string& basePath) {
  try {
    exports::ExportRun run{host_, ports_.files, shapefile::SetOptions{}};
    const int messages = host_.Messages();
    const exports::ExportOutcome outcome = kind.procedure(basePath, state_.JobPath(), run);
    if (outcome.lastStep != jobstore::kDone) {
      ports_.dialogs.ShowWarning(kWarningTitle,
                                 exports::NotReadToEndText(outcome, progress_.total));
    } else if (!outcome.made && host_.Messages() == messages) {
      ports_.dialogs.ShowMessage(exports::kNothingToExport);
    }
    return true;
  } catch (const base::FileError& error) {
    ports_.dialogs.ShowMessage(exports::NotWrittenText(error));
    return false;
  } catch (const std::exception& error) {
    throw std::runtime_error(exports::NotMadeText(kind.name, error));
  }
}

void ExportCommands::CopyJob(const std::string& basePath) {
  const std::string folder = base::SplitAtLastSeparator(basePath).folder;
  if (folder.empty()) return;
  const std::string copy = folder + state_.jobName + std::string(exports::kJobExtension);
  try {
    if (!ports_.files.Exists(copy)) opening::CopyJob(ports_.files, state_.JobPath(), copy);
  } catch (const base::FileError& error) {
    // Another window may have put the same copy there meanwhile.
    if (ports_.files.Exists(copy)) return;
    throw std::runtime_error("Error copying: " + error.Path() + ": " + error.Reason());
  }
}

}  // namespace kestrin::flow
