#pragma once

#include "app/flow/controlRules.h"
#include "app/flow/exportCommands.h"
#include "app/flow/exportScreen.h"
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
  MainFlow(const Ports& ports, const ProgramVersion& version, const ExportCommands::Kinds& kinds);

  MainFlow(const MainFlow&) = delete;
  MainFlow& operator=(const MainFlow&) = delete;

  WindowState& State() { return state_; }
  const WindowState& State() const { return state_; }

  /// The start-up after the window has been measured and hooked: version label,
  /// folders, labels, flags, time zone. `applicationFolder` need not end in a
  /// separator.
  void Form_Load(const std::string& applicationFolder, std::int32_t timeZoneOffset);

  void Command1_Click(int index) { commands_.Command1_Click(index); }
  void Command2_Click() { commands_.Command2_Click(); }
  void Command3_Click() { selection_.Command3_Click(); }
  void Command4_Click();
  /// The control is selected already.
  void Option1_Click(int index);

  void TimerPreview_Timer();
  void TimerShape_Timer();
  void Timer2_Timer();

 private:
  Ports ports_;
  ProgramVersion version_;
  WindowState state_;
  WindowHost host_;
  ControlRules rules_;
  ExportScreen screen_;
  ExportCommands commands_;
  JobSelection selection_;
};

}  // namespace kestrin::flow
