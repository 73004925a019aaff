#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "app/window/mainFrm.h"
#include "app/window/realSurroundings.h"

namespace kestrin::session {

/// File dialogs answered without a user: one job to open, and every set saved under
/// the name proposed. What boxes say goes to the terminal.
class SessionDialogs final : public flow::Dialogs {
 public:
  explicit SessionDialogs(std::string job) : job_(std::move(job)) {}

  std::optional<std::string> OpenFile(const flow::FileRequest& request) override;
  std::optional<std::string> SaveFile(const flow::FileRequest& request) override;
  void ShowMessage(const std::string& text) override;
  void ShowWarning(const std::string& title, const std::string& text) override;
  bool AskYesNo(const std::string& text) override;
  std::string DocumentsFolder() override { return {}; }

 private:
  std::string job_;
};

/// The program's own window, its buttons pressed by a program.
class Session {
 public:
  /// The data folder is made in `folder`. Needs the application object.
  Session(const std::string& job, const std::string& folder);

  window::MainFrm& Window() { return *window_; }
  const window::WindowEvents& EventLoop() const { return window_->EventLoop(); }

  /// Presses SELECT; false when no job is loaded afterwards.
  bool Select();
  /// Chooses preview 0 to 3.
  void Preview(int kind);
  /// Presses CREATE ALL; true when all four sets were made. `watch` is called every
  /// few milliseconds meanwhile.
  bool CreateAll(const std::function<void()>& watch = {});
  QString Label(int kind) const;

 private:
  void Press(const QString& button);

  SessionDialogs dialogs_;
  window::RealSurroundings surroundings_;
  std::unique_ptr<window::MainFrm> window_;
};

}  // namespace kestrin::session
