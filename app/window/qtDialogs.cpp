#include "app/window/qtDialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QStandardPaths>

#include "app/window/dialogLayout.h"

namespace kestrin::window {

namespace {

/// An empty title stands for the window's own.
QMessageBox::StandardButton ShowBox(QWidget& window, QMessageBox::Icon icon,
                                    const std::string& title, const std::string& text,
                                    QMessageBox::StandardButtons buttons) {
  QMessageBox box(&window);
  box.setIcon(icon);
  box.setWindowTitle(title.empty() ? window.windowTitle() : QString::fromStdString(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(text).replace("\r\n", "\n"));
  box.setStandardButtons(buttons);
  LayOutBox(box);
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

std::optional<std::string> Choose(QFileDialog& dialog) {
  LayOutFileDialog(dialog);
  // The system's own dialog may make the chosen folder the program's, and a stick that a
  // program is at home on cannot be taken out.
  const QString home = QDir::currentPath();
  const int answer = dialog.exec();
  QDir::setCurrent(home);
  if (answer != QDialog::Accepted) return std::nullopt;
  const QStringList files = dialog.selectedFiles();
  if (files.isEmpty()) return std::nullopt;
  return QDir::toNativeSeparators(files.front()).toStdString();
}

}  // namespace

QString NameFilter(const std::string& filter) {
  const QString whole = QString::fromStdString(filter);
  const QString description = whole.section('|', 0, 0);
  return description.section('(', 0, 0).trimmed() + " (" + whole.section('|', 1, 1) + ')';
}

std::optional<std::string> QtDialogs::OpenFile(const flow::FileRequest& request) {
  QFileDialog dialog(&window_, QString::fromStdString(request.title),
                     QString::fromStdString(request.folder), NameFilter(request.filter));
  dialog.setFileMode(QFileDialog::ExistingFile);
  return Choose(dialog);
}

std::optional<std::string> QtDialogs::SaveFile(const flow::FileRequest& request) {
  QFileDialog dialog(&window_, QString::fromStdString(request.title),
                     QString::fromStdString(request.folder), NameFilter(request.filter));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.selectFile(QString::fromStdString(request.fileName));
  return Choose(dialog);
}

void QtDialogs::ShowMessage(const std::string& text) {
  ShowBox(window_, QMessageBox::NoIcon, "", text, QMessageBox::Ok);
}

void QtDialogs::ShowWarning(const std::string& title, const std::string& text) {
  ShowBox(window_, QMessageBox::Warning, title, text, QMessageBox::Ok);
}

bool QtDialogs::AskYesNo(const std::string& text) {
  return ShowBox(window_, QMessageBox::NoIcon, "", text, QMessageBox::Yes | QMessageBox::No) ==
         QMessageBox::Yes;
}

std::string QtDialogs::DocumentsFolder() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir::toNativeSeparators(folder).toStdString();
}

}  // namespace kestrin::window
