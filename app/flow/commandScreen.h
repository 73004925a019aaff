#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kestrin::flow {

/// What a file dialog is asked to show.
struct FileRequest {
  std::string title;
  std::string folder;    ///< where it starts
  std::string filter;    ///< description, "|", pattern
  std::string fileName;  ///< proposed name; empty when opening
};

/// The window as the export commands see it. Any call may let events run inside,
/// and DoEvents may throw RunCancelled when the window is to close.
class CommandScreen {
 public:
  virtual ~CommandScreen() = default;

  virtual void SetControlsEnabled(bool enable, bool keepPreview) = 0;
  virtual void ShowExportProgress(bool show, int kind) = 0;

  /// The kinds' buttons, and "CREATE ALL". Backgrounds as app/flow/commandColours.h.
  virtual void EnableCommand1(int kind, bool enable) = 0;
  virtual void EnableCommand2(bool enable) = 0;
  virtual void SetCommand1BackColor(int kind, std::uint32_t bgr) = 0;
  virtual void SetCommand2BackColor(std::uint32_t bgr) = 0;

  /// The text under a kind's button.
  virtual void SetLabel1(int kind, const std::string& caption) = 0;

  /// The timer that gives "CREATE ALL" its ordinary background back.
  virtual void EnableTimer2(bool enable) = 0;

  /// Lets pending events run.
  virtual void DoEvents() = 0;

  /// The name chosen in a save dialog that asks no overwrite question of its own;
  /// none when it was cancelled.
  virtual std::optional<std::string> AskSaveName(const FileRequest& request) = 0;

  /// A question with Yes and No under the program's own title; true for Yes.
  virtual bool AskYesNo(const std::string& question) = 0;

  /// A box with OK under the program's own title.
  virtual void ShowMessage(const std::string& text) = 0;

  /// A box with OK and an exclamation mark, titled "Kestrin Warning".
  virtual void ShowWarning(const std::string& text) = 0;

  /// The user's documents: where a save dialog starts when the export folder cannot
  /// be made.
  virtual std::string DocumentsFolder() = 0;
};

}  // namespace kestrin::flow
