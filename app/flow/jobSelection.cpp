#include "app/flow/jobSelection.h"

#include <exception>
#include <optional>

#include "app/flow/defaultFolder.h"
#include "app/flow/formatVersion.h"
#include "app/flow/warnings.h"
#include "export/exportKinds.h"
#include "jobstore/queries.h"
#include "jobstore/recordedFormat.h"
#include "preview/previewExtent.h"
#include "preview/renderers.h"
#include "shapefile/shapefileSet.h"

namespace kestrin::flow {

void JobSelection::Command3_Click() {
  if (state_.job.jobFolder.empty()) {
    state_.job.jobFolder = DefaultJobFolder(state_.applicationFolder, ports_.drives);
  }
  try {
    Select();
  } catch (const std::exception&) {
    // A selection that fails is abandoned without a word.
  }
  Finish();
}

void JobSelection::Select() {
  rules_.SetControlsEnabled(false, false);
  ports_.controls.SetBackColor({Control::kSelect}, Background::kWorking);
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
  base::SplitPath names = exports::JobNameOf(path);
  // A bare file name leaves the folder remembered as it is.
  if (!names.folder.empty()) job.jobFolder = names.folder;
  job.jobName = names.name;
  ports_.controls.SetCaption({Control::kJobName}, job.jobName);
  job.fileSafeName = exports::FileSafeName(job.jobName);
  job.dateText.clear();
}

bool JobSelection::ReadJob(const std::string& path) {
  std::string version;
  {
    jobstore::Job job(path, host_);
    if (!job.IsOpen()) return false;
    version = jobstore::RecordedFormat(job);
  }
  // A warning stands until somebody sees it, and the console is not to wait for that.
  CheckFormat(version);
  jobstore::Job job(path, host_);
  CountRows(job);
  TakeLastTime(job);
  return job.IsOpen();
}

void JobSelection::CheckFormat(const std::string& version) {
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
  std::int32_t rows = 0;
  jobstore::ReadFirst<jobstore::EpochCount>(job, rows);
  state_.progress = {.count = 0, .total = rows, .twoPass = true};
}

void JobSelection::TakeLastTime(jobstore::Job& job) {
  jobstore::GpsKey newest;
  if (!jobstore::ReadFirst<jobstore::NewestEpoch>(job, newest)) return;
  state_.lastGpsTime = geo::LocalTimeOf(newest, state_.timeZoneOffset);
  state_.job.dateText = geo::DateText(state_.lastGpsTime, ports_.dates.AbbreviatedMonths());
}

void JobSelection::ShowPreview(const std::string& path) {
  ports_.controls.SetWidth({Control::kPreviewBar}, 0);
  rules_.ShowPreviewProgress(true);
  preview::FindPreviewExtent(path, state_.preview, ports_.picture, host_);
  const int selected = ports_.controls.SelectedPreviewKind();
  if (selected >= 0) {
    preview::DrawPreview(selected, state_.preview, ports_.picture, host_);
  } else {
    ports_.controls.SelectPreviewKind(0);
    Option1_Click(0);
  }
}

void JobSelection::Option1_Click(int index) {
  if (state_.preview.jobPath.empty()) return;
  rules_.SetControlsEnabled(false, false);
  rules_.ShowPreviewProgress(true);
  try {
    preview::DrawPreview(index, state_.preview, ports_.picture, host_);
  } catch (const std::exception&) {
    // A preview fails silently, with what was drawn.
  }
  rules_.SetControlsEnabled(true, false);
}

void JobSelection::TestShapes() {
  ExportState& job = state_.job;
  job.exportFolder = exports::ExportFolder(state_.dataFolder, job.fileSafeName, job.dateText);
  for (int i = 0; i < exports::kKindCount; ++i) {
    const auto at = static_cast<std::size_t>(i);
    const std::string base = job.DefaultBasePath(kinds_[at].suffix);
    job.shapeExists[at] = shapefile::SetExists(ports_.files, base);
    ports_.controls.SetCaption({Control::kSetState, i},
                               job.shapeExists[at] ? "Shape File Exists" : "");
    ports_.controls.SetBackColor({Control::kExport, i}, Background::kButtonFace);
  }
}

void JobSelection::Finish() {
  if (state_.preview.jobPath.empty()) {
    ports_.controls.SetEnabled({Control::kSelect}, true);
    ports_.controls.SetEnabled({Control::kJobFrame}, true);
    rules_.ShowPreviewProgress(false);
    for (int i = 0; i < exports::kKindCount; ++i) {
      ports_.controls.SetEnabled({Control::kPreviewKind, i}, false);
    }
    ports_.controls.SetCaption({Control::kJobName}, "");
  } else {
    rules_.SetControlsEnabled(true, false);
  }
  ports_.controls.SetBackColor({Control::kSelect}, Background::kButtonFace);
}

}  // namespace kestrin::flow
