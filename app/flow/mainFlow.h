#pragma once

#include <functional>

#include "app/flow/controlRules.h"
#include "app/flow/exportCommands.h"
#include "app/flow/jobSelection.h"
#include "app/flow/ports.h"
#include "app/flow/programVersion.h"
#include "app/flow/windowHost.h"
#include "app/flow/windowState.h"

namespace kestrin::flow {

/// The window's procedures and the state they share, without the window: each of
/// its controls' events calls the procedure of that name. RunCancelled leaves a
/// procedure only when Ports::events threw it; every other error ends where the
/// procedure says.
class MainFlow {
 public:
  /// `kinds` must outlive it.
  MainFlow(const Ports& ports, const ProgramVersion& version, const exports::ExportKinds& kinds);

  ~MainFlow() = default;
  MainFlow(const MainFlow&) = delete;
  MainFlow& operator=(const MainFlow&) = delete;

  WindowState& State() { return state_; }
  const WindowState& State() const { return state_; }

  /// The start-up after the window has been measured: version label, the hook in front
  /// of the window's procedure, folders, labels, flags, time zone. `applicationFolder`
  /// need not end in a separator. A data folder that can be made nowhere is no reason not
  /// to start.
  void Form_Load(const std::string& applicationFolder, std::int32_t timeZoneOffset,
                 const std::function<void()>& installHook);

  void Command1_Click(int index) { commands_.Command1_Click(index); }
  void Command2_Click() { commands_.Command2_Click(); }
  void Command3_Click() { selection_.Command3_Click(); }
  void Command4_Click();
  /// The control is selected already.
  void Option1_Click(int index);

  /// Fill a bar's track by the share of the rows done, two passes together making the
  /// whole; without a total the bar stays as it is. Both let pending events run.
  void TimerPreview_Timer();
  void TimerShape_Timer();
  /// Gives "CREATE ALL" its ordinary background back.
  void Timer2_Timer();

 private:
  void GrowBar(ControlId track, ControlId bar);

  Ports ports_;
  ProgramVersion version_;
  WindowState state_;
  WindowHost host_;
  ControlRules rules_;
  ExportCommands commands_;
  JobSelection selection_;
};

}  // namespace kestrin::flow
