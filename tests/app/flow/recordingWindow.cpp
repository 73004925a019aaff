#include "tests/app/flow/recordingWindow.h"

#include <sstream>

namespace kestrin::test {
namespace {

std::string Text(bool value) { return value ? "true" : "false"; }

std::string Text(flow::Background background) {
  switch (background) {
    case flow::Background::kButtonFace:
      return "face";
    case flow::Background::kWorking:
      return "working";
    case flow::Background::kSuccess:
      return "success";
    case flow::Background::kFailure:
      return "failure";
  }
  return "?";
}

std::string Number(double value) {
  std::ostringstream text;
  text << value;
  return text.str();
}

}  // namespace

void RecordingWindow::SetEnabled(flow::ControlId id, bool value) {
  enabled[flow::NameOf(id)] = value;
  Add(flow::NameOf(id) + ".Enabled = " + Text(value));
}

void RecordingWindow::SetVisible(flow::ControlId id, bool value) {
  visible[flow::NameOf(id)] = value;
  Add(flow::NameOf(id) + ".Visible = " + Text(value));
}

void RecordingWindow::SetCaption(flow::ControlId id, const std::string& caption) {
  captions[flow::NameOf(id)] = caption;
  Add(flow::NameOf(id) + ".Caption = " + caption);
}

std::string RecordingWindow::Caption(flow::ControlId id) const {
  const auto found = captions.find(flow::NameOf(id));
  return found == captions.end() ? "" : found->second;
}

void RecordingWindow::SetBackColor(flow::ControlId id, flow::Background background) {
  backColors[flow::NameOf(id)] = background;
  Add(flow::NameOf(id) + ".BackColor = " + Text(background));
}

void RecordingWindow::SetWidth(flow::ControlId id, double width) {
  widths[flow::NameOf(id)] = width;
  Add(flow::NameOf(id) + ".Width = " + Number(width));
}

double RecordingWindow::Width(flow::ControlId id) const {
  const auto found = widths.find(flow::NameOf(id));
  return found == widths.end() ? 0 : found->second;
}

void RecordingWindow::SelectPreviewKind(int index) {
  selected = index;
  Add("Option1_" + std::to_string(index) + " selected");
}

void RecordingWindow::DoEvents() {
  Add("DoEvents");
  if (onEvents) onEvents();
}

void RecordingWindow::Yield() {
  ++yields;
  if (onYield) onYield();
}

std::optional<std::string> RecordingWindow::OpenFile(const flow::FileRequest& asked) {
  Add("OpenFile");
  request = asked;
  return chosen;
}

std::optional<std::string> RecordingWindow::SaveFile(const flow::FileRequest& asked) {
  Add("SaveFile " + asked.fileName);
  request = asked;
  return chosen;
}

bool RecordingWindow::AskYesNo(const std::string& text) {
  Add("AskYesNo " + text);
  return yes;
}

std::vector<std::string> RecordingWindow::FilesIn(const std::string& folder) {
  Add("FilesIn " + folder);
  return FakeDrives::FilesIn(folder);
}

std::vector<std::string> RecordingWindow::CallsBeginning(const std::string& start) const {
  std::vector<std::string> found;
  for (const std::string& call : calls) {
    if (call.starts_with(start)) found.push_back(call);
  }
  return found;
}

void RecordingWindow::Sheet(const std::string& call) {
  Add(call);
  if (onSheet) onSheet(call);
  if (sheetFails) throw std::runtime_error("no printer");
}

}  // namespace kestrin::test
