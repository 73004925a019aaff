#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/flow/commandColours.h"
#include "app/flow/commandScreen.h"

namespace kestrin::test {

/// A window that keeps what the export commands do to it, as texts, and answers
/// their questions as told.
class RecordingScreen : public flow::CommandScreen {
 public:
  void SetControlsEnabled(bool enable, bool keepPreview) override {
    Add("SetControlsEnabled", Text(enable) + (enable ? "" : "," + Text(keepPreview)));
  }
  void ShowExportProgress(bool show, int kind) override {
    Add("ShowExportProgress", Text(show) + "," + std::to_string(kind));
  }
  void EnableCommand1(int kind, bool enable) override {
    Add("Command1(" + std::to_string(kind) + ")", enable ? "enabled" : "disabled");
  }
  void EnableCommand2(bool enable) override { Add("Command2", enable ? "enabled" : "disabled"); }
  void SetCommand1BackColor(int kind, std::uint32_t bgr) override {
    Add("Command1(" + std::to_string(kind) + ")", Colour(bgr));
  }
  void SetCommand2BackColor(std::uint32_t bgr) override { Add("Command2", Colour(bgr)); }
  void SetLabel1(int kind, const std::string& caption) override {
    Add("Label1(" + std::to_string(kind) + ")", "'" + caption + "'");
  }
  void EnableTimer2(bool enable) override { Add("Timer2", enable ? "on" : "off"); }
  void DoEvents() override {
    Add("DoEvents");
    if (onEvents) onEvents();
  }
  std::optional<std::string> AskSaveName(const flow::FileRequest& asked) override {
    Add("AskSaveName", asked.fileName);
    request = asked;
    return chosen;
  }
  bool AskYesNo(const std::string& question) override {
    Add("AskYesNo", question);
    return yes;
  }
  void ShowMessage(const std::string& text) override { Add("ShowMessage", text); }
  void ShowWarning(const std::string& text) override { Add("ShowWarning", text); }
  std::string DocumentsFolder() override { return "/home/user/Documents"; }

  void Add(const std::string& who, const std::string& what = "") {
    calls.push_back(what.empty() ? who : who + " " + what);
  }

  std::vector<std::string> Take() { return std::exchange(calls, {}); }

  std::vector<std::string> calls;
  flow::FileRequest request;
  std::optional<std::string> chosen;
  bool yes = true;
  std::function<void()> onEvents;

 private:
  static std::string Text(bool value) { return value ? "true" : "false"; }
  static std::string Colour(std::uint32_t bgr) {
    switch (bgr) {
      case 0xE0FFFF:
        return "yellow";
      case 0x00FF00:
        return "green";
      case 0x0000FF:
        return "red";
      case 0x8000000F:
        return "face";
      default:
        return std::to_string(bgr);
    }
  }
};

}  // namespace kestrin::test
