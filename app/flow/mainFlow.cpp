#include "app/flow/mainFlow.h"

#include "app/flow/commandColours.h"
#include "app/flow/jobSheet.h"
#include "app/flow/progressBar.h"
#include "app/flow/startUp.h"

namespace kestrin::flow {

MainFlow::MainFlow(const Ports& ports, const ProgramVersion& version,
                   const ExportCommands::Kinds& kinds)
    : ports_(ports),
      version_(version),
      host_(state_.progress, ports.events, ports.dialogs),
      rules_(ports.controls, ports.events, state_.progress),
      screen_(rules_, ports),
      commands_(state_.job, screen_, ports.files, host_, kinds),
      selection_(state_, ports, rules_, host_, version, kinds) {}

void MainFlow::Form_Load(const std::string& applicationFolder, std::int32_t timeZoneOffset) {
  ports_.controls.SetCaption({Control::kLabel4}, VersionCaption(version_));
  EnterApplicationFolder(state_, ports_.files, applicationFolder);
  ClearShapeLabels(ports_.controls);
  state_.job.idle = true;
  state_.timeZoneOffset = timeZoneOffset;
}

void MainFlow::Command4_Click() { PrintJobSheet(state_, ports_); }

void MainFlow::Option1_Click(int index) { selection_.Option1_Click(index); }

void MainFlow::TimerPreview_Timer() {
  TickProgressBar({Control::kLabel7}, {Control::kShape1}, state_.progress, ports_);
}

void MainFlow::TimerShape_Timer() {
  TickProgressBar({Control::kLabel9}, {Control::kShape2}, state_.progress, ports_);
}

void MainFlow::Timer2_Timer() {
  ports_.controls.SetEnabled({Control::kTimer2}, false);
  ports_.controls.SetBackColor({Control::kCommand2}, kButtonFace);
}

}  // namespace kestrin::flow
