#include "app/flow/exportCommands.h"

#include <exception>
#include <optional>
#include <string_view>

#include "app/flow/commandColours.h"
#include "base/text.h"
#include "jobstore/sqliteDefs.h"
#include "shapefile/shapefileSet.h"

namespace kestrin::flow {
namespace {

constexpr const char* kLineBreak = "\r\n";

std::size_t At(int kind) { return static_cast<std::size_t>(kind); }

std::string IncompleteText(const exports::ExportOutcome& outcome) {
  return std::string("The job could not be read to its end.") + kLineBreak +
         "Epochs written: " + std::to_string(outcome.epochs) + kLineBreak +
         "Error code: " + std::to_string(outcome.lastStep);
}

}  // namespace

struct ExportCommands::Target {
  std::string basePath;  ///< without extension
  std::string folder;    ///< ends in a separator, or is empty
};

std::string DefaultBasePath(const ExportState& state, std::string_view suffix, char separator) {
  return state.exportFolder + separator + exports::SetName(state.fileSafeName, state.dateText) +
         std::string(suffix);
}

void ExportCommands::Command1_Click(int kind) {
  Run([this, kind] { screen_.EnableCommand1(kind, true); },
      [this, kind](const std::string& startFolder) { ExportOne(kind, startFolder); });
}

void ExportCommands::Command2_Click() {
  Run([this] { screen_.EnableCommand2(true); },
      [this](const std::string& startFolder) { ExportAll(startFolder); });
}

template <class KeepEnabled, class Body>
void ExportCommands::Run(KeepEnabled keepEnabled, Body body) {
  if (!state_.idle) return;
  state_.idle = false;
  screen_.SetControlsEnabled(false, true);
  keepEnabled();
  try {
    if (JobIsThere()) body(StartFolder());
  } catch (const base::RunCancelled&) {
    throw;
  } catch (const std::exception&) {
    // Whatever was worth saying has been said; what is left is to finish.
  }
  screen_.SetControlsEnabled(true, false);
  state_.idle = true;
}

bool ExportCommands::JobIsThere() {
  return !state_.jobName.empty() && files_.Exists(state_.JobPath());
}

std::string ExportCommands::StartFolder() {
  try {
    base::MakePath(files_, state_.exportFolder, separator_);
    return state_.exportFolder;
  } catch (const base::FileError&) {
    return screen_.DocumentsFolder();
  }
}

std::optional<ExportCommands::Target> ExportCommands::AskTarget(const std::string& startFolder,
                                                                std::string_view suffix) {
  const std::optional<std::string> chosen =
      screen_.AskSaveName({"Save Shape", startFolder, "Shape Files (*.shp)|*.shp",
                           exports::SetName(state_.fileSafeName, state_.dateText)
                               .append(suffix)
                               .append(exports::kShapeExtension)});
  if (!chosen || chosen->empty()) return std::nullopt;
  Target target;
  target.basePath = base::Without(*chosen, exports::kShapeExtension);
  target.folder = base::SplitAtLastSeparator(target.basePath, separator_).folder;
  return target;
}

void ExportCommands::ExportOne(int kind, const std::string& startFolder) {
  const auto target = AskTarget(startFolder, kinds_[At(kind)].suffix);
  if (!target) return;
  for (int i = 0; i < exports::kKindCount; ++i) screen_.SetCommand1BackColor(i, kButtonFace);
  screen_.EnableTimer2(false);
  screen_.SetCommand2BackColor(kButtonFace);
  screen_.SetCommand1BackColor(kind, kWorkingColour);
  screen_.DoEvents();
  // The flag speaks of the default name even when another one was chosen: users
  // count on being asked for every second export of a kind.
  if (state_.shapeExists[At(kind)] &&
      !screen_.AskYesNo("Shape File already exists.  Do you want to overwrite it?")) {
    screen_.SetCommand1BackColor(kind, kButtonFace);
    return;
  }
  screen_.SetLabel1(kind, "Creating Shape File");
  Export(kind, target->basePath);
  CopyJob(target->folder);
}

void ExportCommands::ExportAll(const std::string& startFolder) {
  const auto target = AskTarget(startFolder, "");
  if (!target) return;
  screen_.EnableTimer2(false);
  screen_.SetCommand2BackColor(kWorkingColour);
  for (int i = 0; i < exports::kKindCount; ++i) {
    screen_.SetCommand1BackColor(i, kButtonFace);
    screen_.SetLabel1(i, "");
  }
  for (int i = 0; i < exports::kKindCount; ++i) {
    screen_.SetLabel1(i, "Creating Shape File");
    screen_.SetCommand1BackColor(i, kWorkingColour);
    screen_.EnableCommand1(i, true);
    if (i > 0) screen_.EnableCommand1(i - 1, false);
    Export(i, target->basePath + std::string(kinds_[At(i)].suffix));
  }
  CopyJob(target->folder);
  screen_.SetCommand2BackColor(kSuccessColour);
  screen_.EnableTimer2(true);
}

void ExportCommands::Export(int kind, const std::string& basePath) {
  screen_.ShowExportProgress(true, kind);
  screen_.DoEvents();
  const bool written = RunProcedure(kind, basePath);
  const bool exists = shapefile::SetExists(files_, basePath);
  state_.shapeExists[At(kind)] = exists;
  // An old set that could not be replaced exists, but was not created.
  const bool created = written && exists;
  screen_.SetLabel1(kind, created ? "Shape File Created" : "Error Creating File");
  screen_.SetCommand1BackColor(kind, created ? kSuccessColour : kFailureColour);
  screen_.DoEvents();
}

bool ExportCommands::RunProcedure(int kind, const std::string& basePath) {
  try {
    exports::ExportRun run{host_, files_, shapefile::SetOptions{}};
    const exports::ExportOutcome outcome =
        kinds_[At(kind)].procedure(basePath, state_.JobPath(), run);
    if (outcome.lastStep != jobstore::kDone) screen_.ShowWarning(IncompleteText(outcome));
    return true;
  } catch (const base::FileError& error) {
    screen_.ShowMessage("Error writing: " + error.Path() + ": " + error.Reason());
    return false;
  }
}

void ExportCommands::CopyJob(const std::string& folder) {
  if (folder.empty()) return;
  const std::string copy = folder + state_.jobName + std::string(exports::kJobExtension);
  if (!files_.Exists(copy)) files_.Copy(state_.JobPath(), copy);
}

}  // namespace kestrin::flow
