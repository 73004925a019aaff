#include "app/flow/controlRules.h"

#include <array>

#include "export/exportKinds.h"

namespace kestrin::flow {
namespace {

constexpr std::array<const char*, exports::kKindCount> kProgressCaptions{
    "Creating Wire Shape", "Creating Boom Shape", "Creating Poly Shape", "Creating Point Shape"};

}  // namespace

void ControlRules::SetControlsEnabled(bool enable, bool keepPreview) {
  for (const Control frame : {Control::kJobFrame, Control::kExportFrame, Control::kPreviewFrame}) {
    controls_.SetEnabled({frame}, enable);
  }
  const int selected = controls_.SelectedPreviewKind();
  for (int i = 0; i < exports::kKindCount; ++i) {
    controls_.SetEnabled({Control::kExport, i}, enable);
    if (enable || i != selected) controls_.SetEnabled({Control::kPreviewKind, i}, enable);
  }
  for (const Control command : {Control::kCreateAll, Control::kSelect, Control::kPrint}) {
    controls_.SetEnabled({command}, enable);
  }
  if (enable) {
    controls_.SetEnabled({Control::kPreview}, true);
    ShowPreviewProgress(false);
    ShowExportProgress(false, 0);
  } else if (!keepPreview) {
    controls_.SetEnabled({Control::kPreview}, false);
  }
  events_.DoEvents();
}

void ControlRules::ShowExportProgress(bool show, int kind) {
  if (show && kind >= 0 && kind < exports::kKindCount) {
    controls_.SetCaption({Control::kExportCaption},
                         kProgressCaptions[static_cast<std::size_t>(kind)]);
  }
  for (const Control part : {Control::kExportTrack, Control::kExportBar, Control::kExportCaption}) {
    controls_.SetVisible({part}, show);
  }
  controls_.SetEnabled({Control::kExportTimer}, show);
  progress_.count = 0;
  controls_.SetWidth({Control::kExportBar}, 0);
  events_.DoEvents();
}

void ControlRules::ShowPreviewProgress(bool show) {
  for (const Control part :
       {Control::kPreviewTrack, Control::kPreviewBar, Control::kPreviewCaption}) {
    controls_.SetVisible({part}, show);
  }
  controls_.SetEnabled({Control::kPreviewTimer}, show);
  if (!show) progress_.twoPass = false;
  if (!progress_.twoPass) {
    progress_.count = 0;
    controls_.SetWidth({Control::kPreviewBar}, 0);
  }
  events_.DoEvents();
}

}  // namespace kestrin::flow
