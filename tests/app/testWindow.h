#pragma once

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTest>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/widgets/buttons.h"
#include "app/widgets/caption.h"
#include "app/widgets/frame.h"
#include "app/widgets/pictureBox.h"
#include "app/window/mainFrm.h"
#include "tests/app/desktop.h"
#include "tests/support/tempFolder.h"

namespace kestrin::test {

/// Answers file dialogs and message boxes from what a test laid ready, and keeps
/// what was asked. Without an answer a dialog is cancelled and a question denied.
class ScriptedDialogs final : public flow::Dialogs {
 public:
  std::optional<std::string> OpenFile(const flow::FileRequest& request) override;
  std::optional<std::string> SaveFile(const flow::FileRequest& request) override;
  void ShowMessage(const std::string& text) override;
  void ShowWarning(const std::string& title, const std::string& text) override;
  bool AskYesNo(const std::string& text) override;
  std::string DocumentsFolder() override { return documents; }

  std::deque<std::string> toOpen;
  std::deque<std::string> toSave;
  std::deque<bool> answers;
  std::string documents = "/documents";
  /// Called while any dialog or box is on screen.
  std::function<void()> whileOpen;

  std::vector<flow::FileRequest> opened;
  std::vector<flow::FileRequest> saved;
  std::vector<std::string> messages;
  std::vector<std::pair<std::string, std::string>> warnings;
  std::vector<std::string> questions;

 private:
  static std::optional<std::string> Take(std::deque<std::string>& from);
};

/// The real window in a folder of its own, with scripted dialogs.
class TestWindow {
 public:
  using Change = std::function<void(window::Surroundings&)>;
  explicit TestWindow(const Change& change = {});

  window::MainFrm* operator->() { return window_.get(); }
  window::MainFrm& operator*() { return *window_; }

  template <class Type = QWidget>
  Type& Find(const std::string& name) {
    auto* found = window_->findChild<Type*>(QString::fromStdString(name));
    if (found == nullptr) throw std::runtime_error("no control " + name);
    return *found;
  }
  widgets::GraphicalButton& Button(const std::string& name) {
    return Find<widgets::GraphicalButton>(name);
  }
  QAbstractButton& Option(int index) {
    return Find<QAbstractButton>("Option1_" + std::to_string(index));
  }
  std::string Text(const std::string& name) { return Find<QLabel>(name).text().toStdString(); }
  bool Enabled(const std::string& name) { return Find<>(name).isEnabled(); }

  /// Clicks the middle of a control with the left mouse button.
  void Click(const std::string& name);

  /// Selects a job through SELECT.
  void Select(const std::string& jobPath);

  TempFolder folder;
  ScriptedDialogs dialogs;
  FakeDrives drives;
  EnglishDates dates;
  std::unique_ptr<base::FileSystem> files = base::NativeFileSystem();

 private:
  std::unique_ptr<window::MainFrm> window_;
};

/// A window that is resized, scrolled and driven by keys.
class WindowTest : public testing::Test {
 protected:
  void Resize(int width, int height) {
    window_->resize(width, height);
    QTest::qWait(1);
  }
  QScrollBar& V() { return window_.Find<QScrollBar>("VScroll1"); }
  QScrollBar& H() { return window_.Find<QScrollBar>("HScroll1"); }
  QWidget& Content() { return window_.Find<>("Picture2"); }

  /// Presses a key where the focus is.
  void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QWidget* focused = window_->focusWidget();
    QTest::keyClick(focused == nullptr ? &*window_ : focused, key, with);
  }

  TestWindow window_;
};

/// A job in the folder: an implement of two sections pulled north, turned, and
/// pulled back south, over two stretches. Format 3.2.8-1, last row 15 June 2006.
std::string SmallJob(const TempFolder& folder, const std::string& name = "North.Field.sqlite",
                     int epochsPerLeg = 60);

}  // namespace kestrin::test
