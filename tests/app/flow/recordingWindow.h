#pragma once

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/utf8Path.h"
#include "tests/app/desktop.h"

namespace kestrin::test {

/// A window's controls, event loop, dialogs, drives, dates and job sheet, all in
/// one: keeps what is done to it, in order and as texts, and answers as told.
class RecordingWindow : public flow::Controls,
                        public flow::Events,
                        public flow::Dialogs,
                        public FakeDrives,
                        public EnglishDates,
                        public flow::JobSheet {
 public:
  // Controls: "Command1_2.Enabled = true". State is kept as well.
  void SetEnabled(flow::ControlId id, bool enabled) override;
  void SetVisible(flow::ControlId id, bool visible) override;
  void SetCaption(flow::ControlId id, const std::string& caption) override;
  std::string Caption(flow::ControlId id) const override;
  void SetBackColor(flow::ControlId id, flow::Background background) override;
  void SetWidth(flow::ControlId id, double width) override;
  double Width(flow::ControlId id) const override;
  int SelectedPreviewKind() const override { return selected; }
  void SelectPreviewKind(int index) override;

  // Events
  void DoEvents() override;
  void Yield() override;

  // Dialogs
  std::optional<std::string> OpenFile(const flow::FileRequest& asked) override;
  std::optional<std::string> SaveFile(const flow::FileRequest& asked) override;
  void ShowMessage(const std::string& text) override { Add("ShowMessage " + text); }
  void ShowWarning(const std::string& title, const std::string& text) override {
    Add("ShowWarning [" + title + "] " + text);
    if (onWarning) onWarning();
  }
  bool AskYesNo(const std::string& text) override;
  std::string DocumentsFolder() override { return documents; }

  // Drives
  std::vector<std::string> FilesIn(const std::string& folder) override;

  // JobSheet
  void Load() override { Sheet("Load"); }
  void ClearPicture() override { Sheet("ClearPicture"); }
  void CopyPreviewPicture() override { Sheet("CopyPreviewPicture"); }
  void SetJobName(const std::string& name) override { Sheet("SetJobName " + name); }
  void SetLastModified(const std::string& date) override { Sheet("SetLastModified " + date); }
  void Print() override { Sheet("Print"); }
  void Unload() override { Sheet("Unload"); }

  void Add(const std::string& call) { calls.push_back(call); }
  std::vector<std::string> Take() { return std::exchange(calls, {}); }

  /// The calls of one sort, in order.
  std::vector<std::string> CallsBeginning(const std::string& start) const;

  /// State of the controls by name; those never touched are missing.
  std::map<std::string, bool> enabled;
  std::map<std::string, bool> visible;
  std::map<std::string, std::string> captions;
  std::map<std::string, flow::Background> backColors;
  std::map<std::string, double> widths;

  std::vector<std::string> calls;
  int selected = -1;
  std::optional<std::string> chosen;
  std::string documents = base::WithOwnSeparators("/home/user/Documents");
  flow::FileRequest request;
  bool yes = true;
  int yields = 0;
  std::function<void()> onEvents;
  std::function<void()> onWarning;
  std::function<void()> onYield;
  /// Hears of every step of the job sheet.
  std::function<void(const std::string& call)> onSheet;
  /// Whether every step of the job sheet fails after it was noted.
  bool sheetFails = false;

 private:
  void Sheet(const std::string& call);
};

}  // namespace kestrin::test
