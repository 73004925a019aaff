#include "app/flow/controlRules.h"

#include <array>

#include "export/exportKinds.h"

namespace kestrin::flow {
namespace {

constexpr std::array<const char*, exports::kKindCount> kProgressCaptions{
    "Creating Wire Shape", "Creating Boom Shape", "Creating Poly Shape", "Creating Point Shape"};

}  // namespace

void ControlRules::SetControlsEnabled(bool enable, bool keepPreview) {
  for (const Control frame : {Control::kFrame1, Control::kFrame2, Control::kFrame4}) {
    controls_.SetEnabled({frame}, enable);
  }
  const int selected = controls_.SelectedOption1();
  for (int i = 0; i < exports::kKindCount; ++i) {
    controls_.SetEnabled({Control::kCommand1, i}, enable);
    if (enable || i != selected) controls_.SetEnabled({Control::kOption1, i}, enable);
  }
  for (const Control command : {Control::kCommand2, Control::kCommand3, Control::kCommand4}) {
    controls_.SetEnabled({command}, enable);
  }
  if (enable) {
    controls_.SetEnabled({Control::kPicture1}, true);
    ShowPreviewProgress(false);
    ShowExportProgress(false, 0);
  } else if (!keepPreview) {
    controls_.SetEnabled({Control::kPicture1}, false);
  }
  events_.DoEvents();
}

void ControlRules::ShowExportProgress(bool show, int kind) {
  if (show && kind >= 0 && kind < exports::kKindCount) {
    controls_.SetCaption({Control::kLabel10}, kProgressCaptions[static_cast<std::size_t>(kind)]);
  }
  for (const Control part : {Control::kLabel9, Control::kShape2, Control::kLabel10}) {
    controls_.SetVisible({part}, show);
  }
  controls_.SetEnabled({Control::kTimerShape}, show);
  progress_.count = 0;
  controls_.SetWidth({Control::kShape2}, 0);
  events_.DoEvents();
}

void ControlRules::ShowPreviewProgress(bool show) {
  for (const Control part : {Control::kLabel7, Control::kShape1, Control::kLabel8}) {
    controls_.SetVisible({part}, show);
  }
  controls_.SetEnabled({Control::kTimerPreview}, show);
  if (!show) progress_.twoPass = false;
  if (!progress_.twoPass) {
    progress_.count = 0;
    controls_.SetWidth({Control::kShape1}, 0);
  }
  events_.DoEvents();
}

}  // namespace kestrin::flow
