#include "app/flow/exportScreen.h"

#include "app/flow/warnings.h"

namespace kestrin::flow {

void ExportScreen::SetControlsEnabled(bool enable, bool keepPreview) {
  rules_.SetControlsEnabled(enable, keepPreview);
}

void ExportScreen::ShowExportProgress(bool show, int kind) {
  rules_.ShowExportProgress(show, kind);
}

void ExportScreen::EnableCommand1(int kind, bool enable) {
  ports_.controls.SetEnabled({Control::kCommand1, kind}, enable);
}

void ExportScreen::EnableCommand2(bool enable) {
  ports_.controls.SetEnabled({Control::kCommand2}, enable);
}

void ExportScreen::SetCommand1BackColor(int kind, std::uint32_t bgr) {
  ports_.controls.SetBackColor({Control::kCommand1, kind}, bgr);
}

void ExportScreen::SetCommand2BackColor(std::uint32_t bgr) {
  ports_.controls.SetBackColor({Control::kCommand2}, bgr);
}

void ExportScreen::SetLabel1(int kind, const std::string& caption) {
  ports_.controls.SetCaption({Control::kLabel1, kind}, caption);
}

void ExportScreen::EnableTimer2(bool enable) {
  ports_.controls.SetEnabled({Control::kTimer2}, enable);
}

void ExportScreen::DoEvents() { ports_.events.DoEvents(); }

std::optional<std::string> ExportScreen::AskSaveName(const FileRequest& request) {
  return ports_.dialogs.SaveFile(request);
}

bool ExportScreen::AskYesNo(const std::string& question) {
  return ports_.dialogs.AskYesNo(question);
}

void ExportScreen::ShowMessage(const std::string& text) { ports_.dialogs.ShowMessage(text); }

void ExportScreen::ShowWarning(const std::string& text) {
  ports_.dialogs.ShowWarning(kWarningTitle, text);
}

std::string ExportScreen::DocumentsFolder() { return ports_.dialogs.DocumentsFolder(); }

}  // namespace kestrin::flow
