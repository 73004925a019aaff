#include "app/flow/jobSelection.h"

#include <exception>
#include <optional>

#include "app/flow/commandColours.h"
#include "app/flow/defaultFolder.h"
#include "app/flow/formatVersion.h"
#include "app/flow/warnings.h"
#include "base/text.h"
#include "export/exportKinds.h"
#include "jobstore/queries.h"
#include "preview/previewExtent.h"
#include "preview/renderers.h"
#include "shapefile/shapefileSet.h"

namespace kestrin::flow {

void JobSelection::Command3_Click() {
  if (state_.job.jobFolder.empty()) {
    state_.job.jobFolder = DefaultJobFolder(state_.applicationFolder, ports_.drives, separator_);
  }
  try {
    Select();
  } catch (const base::RunCancelled&) {
    throw;
  } catch (const std::exception&) {
    // A selection that fails is abandoned without a word.
  }
  Finish();
}

void JobSelection::Select() {
  rules_.SetControlsEnabled(false, false);
  ports_.controls.SetBackColor({Control::kCommand3}, kWorkingColour);
  ports_.events.DoEvents();
  const std::string pattern = "*" + std::string(exports::kJobExtension);
  const std::optional<std::string> chosen = ports_.dialogs.OpenFile(
      {"Select Job", state_.job.jobFolder, "Job Files (" + pattern + ")|" + pattern, ""});
  if (!chosen || chosen->empty() || !ports_.files.Exists(*chosen)) return;
  TakeNames(*chosen);
  if (ReadJob(*chosen)) ShowPreview(*chosen);
  TestShapes();
}

void JobSelection::TakeNames(const std::string& path) {
  ExportState& job = state_.job;
  base::SplitPath names = exports::JobNameOf(path, separator_);
  // A bare file name leaves the folder remembered as it is.
  if (!names.folder.empty()) job.jobFolder = names.folder;
  job.jobName = names.name;
  ports_.controls.SetCaption({Control::kLabel5}, job.jobName);
  job.fileSafeName = exports::FileSafeName(job.jobName);
  job.dateText.clear();
}

bool JobSelection::ReadJob(const std::string& path) {
  jobstore::Job job(path, host_);
  if (!job.IsOpen()) return false;
  CheckFormat(job);
  CountRows(job);
  TakeLastTime(job);
  return true;
}

void JobSelection::CheckFormat(jobstore::Job& job) {
  jobstore::CountRow tables;
  jobstore::TextRow newest;
  if (jobstore::ReadFirst<jobstore::VersionTableCount>(job, tables) && tables.count > 0) {
    jobstore::ReadFirst<jobstore::NewestVersion>(job, newest);
  }
  const std::string version(base::TrimmedBlanks(newest.text));
  switch (CompareFormat(version)) {
    case FormatAge::kCompatible:
      break;
    case FormatAge::kUnknown:
      ports_.dialogs.ShowWarning(kWarningTitle, UnknownFormatWarning(version));
      break;
    case FormatAge::kNewer:
      ports_.dialogs.ShowWarning(kWarningTitle, NewerJobWarning(version_, version));
      break;
  }
}

void JobSelection::CountRows(jobstore::Job& job) {
  jobstore::CountRow rows;
  jobstore::ReadFirst<jobstore::EpochCount>(job, rows);
  state_.progress = {.count = 0, .total = rows.count, .twoPass = true};
}

void JobSelection::TakeLastTime(jobstore::Job& job) {
  jobstore::KeyRow newest;
  if (!jobstore::ReadFirst<jobstore::NewestEpoch>(job, newest)) return;
  state_.lastGpsTime = geo::LocalTimeOf(newest.time, state_.timeZoneOffset);
  state_.job.dateText = geo::DateText(state_.lastGpsTime, ports_.dates.AbbreviatedMonths());
}

void JobSelection::ShowPreview(const std::string& path) {
  ports_.controls.SetWidth({Control::kShape1}, 0);
  rules_.ShowPreviewProgress(true);
  preview::FindPreviewExtent(path, state_.preview, ports_.picture, host_);
  const int selected = ports_.controls.SelectedOption1();
  if (selected >= 0) {
    preview::DrawPreview(selected, state_.preview, ports_.picture, host_);
  } else {
    ports_.controls.SelectOption1(0);
    Option1_Click(0);
  }
}

void JobSelection::Option1_Click(int index) {
  if (state_.preview.jobPath.empty()) return;
  rules_.SetControlsEnabled(false, false);
  rules_.ShowPreviewProgress(true);
  try {
    preview::DrawPreview(index, state_.preview, ports_.picture, host_);
  } catch (const base::RunCancelled&) {
    throw;
  } catch (const std::exception&) {
    // A preview fails silently, with what was drawn.
  }
  rules_.SetControlsEnabled(true, false);
}

void JobSelection::TestShapes() {
  ExportState& job = state_.job;
  job.exportFolder =
      exports::ExportFolder(state_.dataFolder, job.fileSafeName, job.dateText, separator_);
  for (int i = 0; i < exports::kKindCount; ++i) {
    const auto at = static_cast<std::size_t>(i);
    const std::string base = DefaultBasePath(job, kinds_[at].suffix, separator_);
    job.shapeExists[at] = shapefile::SetExists(ports_.files, base);
    ports_.controls.SetCaption({Control::kLabel1, i},
                               job.shapeExists[at] ? "Shape File Exists" : "");
    ports_.controls.SetBackColor({Control::kCommand1, i}, kButtonFace);
  }
}

void JobSelection::Finish() {
  if (state_.preview.jobPath.empty()) {
    ports_.controls.SetEnabled({Control::kCommand3}, true);
    ports_.controls.SetEnabled({Control::kFrame1}, true);
    rules_.ShowPreviewProgress(false);
    for (int i = 0; i < exports::kKindCount; ++i) {
      ports_.controls.SetEnabled({Control::kOption1, i}, false);
    }
    ports_.controls.SetCaption({Control::kLabel5}, "");
  } else {
    rules_.SetControlsEnabled(true, false);
  }
  ports_.controls.SetBackColor({Control::kCommand3}, kButtonFace);
}

}  // namespace kestrin::flow
