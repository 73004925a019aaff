#pragma once

#include "app/flow/controls.h"
#include "app/flow/ports.h"
#include "app/flow/windowState.h"

namespace kestrin::flow {

/// Which controls are enabled and which progress indicator shows. All three let
/// pending events run.
class ControlRules {
 public:
  ControlRules(Controls& controls, Events& events, Progress& progress)
      : controls_(controls), events_(events), progress_(progress) {}

  /// Disabling leaves the selected Option1 as it is, and Picture1 too with
  /// `keepPreview`. Enabling hides both progress indicators.
  void SetControlsEnabled(bool enable, bool keepPreview);

  /// The export's bar, under a caption for kind 0 to 3 when shown; starts at 0.
  void ShowExportProgress(bool show, int kind);

  /// The preview's bar. Starts at 0, unless the two-pass flag is set: its second
  /// pass goes on where the first ended. Hiding clears the flag.
  void ShowPreviewProgress(bool show);

 private:
  Controls& controls_;
  Events& events_;
  Progress& progress_;
};

}  // namespace kestrin::flow
