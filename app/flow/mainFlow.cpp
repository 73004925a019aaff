#include "app/flow/mainFlow.h"

#include <cmath>

#include "app/flow/dataFolder.h"
#include "app/flow/jobSheet.h"
#include "base/paths.h"
#include "export/exportKinds.h"

namespace kestrin::flow {

MainFlow::MainFlow(const Ports& ports, const ProgramVersion& version,
                   const exports::ExportKinds& kinds)
    : ports_(ports),
      version_(version),
      host_(state_.progress, ports.events, ports.dialogs),
      rules_(ports.controls, ports.events, state_.progress),
      commands_(state_.job, state_.progress, ports, rules_, host_, kinds),
      selection_(state_, ports, rules_, host_, version, kinds) {}

void MainFlow::Form_Load(const std::string& applicationFolder, std::int32_t timeZoneOffset,
                         const std::function<void()>& installHook) {
  ports_.controls.SetCaption({Control::kVersion}, VersionCaption(version_));
  installHook();
  state_.applicationFolder = base::WithSeparator(applicationFolder);
  state_.dataFolder =
      DataFolder(ports_.files, state_.applicationFolder, ports_.dialogs.DocumentsFolder());
  for (int i = 0; i < exports::kKindCount; ++i) {
    ports_.controls.SetCaption({Control::kSetState, i}, "");
  }
  state_.job.idle = true;
  state_.timeZoneOffset = timeZoneOffset;
}

void MainFlow::Command4_Click() { PrintJobSheet(state_, ports_); }

void MainFlow::Option1_Click(int index) { selection_.Option1_Click(index); }

void MainFlow::TimerPreview_Timer() { GrowBar({Control::kPreviewTrack}, {Control::kPreviewBar}); }

void MainFlow::TimerShape_Timer() { GrowBar({Control::kExportTrack}, {Control::kExportBar}); }

void MainFlow::GrowBar(ControlId track, ControlId bar) {
  const Progress& progress = state_.progress;
  if (progress.total > 0) {
    const double passes = progress.twoPass ? 2 : 1;
    const double whole = std::nearbyint(ports_.controls.Width(track));
    ports_.controls.SetWidth(bar, whole * (progress.count / (passes * progress.total)));
  }
  ports_.events.DoEvents();
}

void MainFlow::Timer2_Timer() {
  ports_.controls.SetEnabled({Control::kCreateAllTimer}, false);
  ports_.controls.SetBackColor({Control::kCreateAll}, Background::kButtonFace);
}

}  // namespace kestrin::flow
