#pragma once

#include <string>

#include "app/flow/controlRules.h"
#include "app/flow/ports.h"
#include "app/flow/programVersion.h"
#include "app/flow/windowState.h"
#include "base/runHost.h"
#include "jobstore/job.h"

namespace kestrin::flow {

/// The command behind "SELECT", the only way a job becomes current: asks for the
/// file, warns about its format, fills the window's state, draws its preview and
/// says which of its sets exist.
///
/// Run-time errors, a cancelled dialog included, abandon the selection without a
/// message; what was done stays done. RunCancelled passes through untouched.
class JobSelection {
 public:
  JobSelection(WindowState& state, const Ports& ports, ControlRules& rules, base::RunHost& host,
               const ProgramVersion& version, const exports::ExportKinds& kinds)
      : state_(state),
        ports_(ports),
        rules_(rules),
        host_(host),
        version_(version),
        kinds_(kinds) {}

  void Command3_Click();

  /// The click on an Option1: draws that kind of the job that is loaded, if any.
  void Option1_Click(int index);

 private:
  void Select();
  void TakeNames(const std::string& path);
  bool ReadJob(const std::string& path);
  void CheckFormat(const std::string& version);
  void CountRows(jobstore::Job& job);
  void TakeLastTime(jobstore::Job& job);
  void ShowPreview(const std::string& path);
  void TestShapes();
  void Finish();

  WindowState& state_;
  Ports ports_;
  ControlRules& rules_;
  base::RunHost& host_;
  ProgramVersion version_;
  const exports::ExportKinds& kinds_;
};

}  // namespace kestrin::flow
