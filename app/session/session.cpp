#include "app/session/session.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <cstdio>

#include "base/text.h"

namespace kestrin::session {

std::optional<std::string> SessionDialogs::OpenFile(const flow::FileRequest&) { return job_; }

std::optional<std::string> SessionDialogs::SaveFile(const flow::FileRequest& request) {
  return base::WithSeparator(request.folder) + request.fileName;
}

void SessionDialogs::ShowMessage(const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
}

void SessionDialogs::ShowWarning(const std::string& title, const std::string& text) {
  std::fprintf(stderr, "%s: %s\n", title.c_str(), base::Without(text, "\r").c_str());
}

bool SessionDialogs::AskYesNo(const std::string&) { return true; }

Session::Session(const std::string& job, const std::string& folder) : dialogs_(job) {
  window::Surroundings around = surroundings_.Get();
  around.applicationFolder = folder;
  around.dialogs = &dialogs_;
  window_ = std::make_unique<window::MainFrm>(around);
  window_->show();
  QApplication::processEvents();
}

void Session::Press(const QString& button) {
  window_->findChild<QAbstractButton*>(button)->click();
}

bool Session::Select() {
  Press("Command3");
  return !window_->State().preview.jobPath.empty();
}

void Session::Preview(int kind) { Press(QString("Option1_%1").arg(kind)); }

bool Session::CreateAll(const std::function<void()>& watch) {
  constexpr int kOften = 5;
  QTimer timer;
  if (watch) QObject::connect(&timer, &QTimer::timeout, watch);
  timer.start(kOften);
  Press("Command2");
  bool all = true;
  for (int kind = 0; kind < exports::kKindCount; ++kind)
    all = all && Label(kind) == "Shape File Created";
  return all;
}

QString Session::Label(int kind) const {
  return window_->findChild<QLabel*>(QString("Label1_%1").arg(kind))->text();
}

}  // namespace kestrin::session
