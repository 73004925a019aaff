#pragma once

#include <string>

#include "app/flow/commandScreen.h"
#include "app/flow/controlRules.h"
#include "app/flow/ports.h"

namespace kestrin::flow {

/// The export commands' view of the window, over its controls and dialogs.
class ExportScreen final : public CommandScreen {
 public:
  ExportScreen(ControlRules& rules, const Ports& ports) : rules_(rules), ports_(ports) {}

  void SetControlsEnabled(bool enable, bool keepPreview) override;
  void ShowExportProgress(bool show, int kind) override;
  void EnableCommand1(int kind, bool enable) override;
  void EnableCommand2(bool enable) override;
  void SetCommand1BackColor(int kind, std::uint32_t bgr) override;
  void SetCommand2BackColor(std::uint32_t bgr) override;
  void SetLabel1(int kind, const std::string& caption) override;
  void EnableTimer2(bool enable) override;
  void DoEvents() override;
  std::optional<std::string> AskSaveName(const FileRequest& request) override;
  bool AskYesNo(const std::string& question) override;
  void ShowMessage(const std::string& text) override;
  void ShowWarning(const std::string& text) override;
  std::string DocumentsFolder() override;

 private:
  ControlRules& rules_;
  Ports ports_;
};

}  // namespace kestrin::flow
