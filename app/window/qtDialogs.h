#pragma once

#include <QWidget>

#include "app/flow/ports.h"

namespace kestrin::window {

/// The platform's own file dialogs where there are any, and message boxes over the
/// window.
class QtDialogs final : public flow::Dialogs {
 public:
  explicit QtDialogs(QWidget& window) : window_(window) {}

  std::optional<std::string> OpenFile(const flow::FileRequest& request) override;
  std::optional<std::string> SaveFile(const flow::FileRequest& request) override;
  void ShowMessage(const std::string& text) override;
  void ShowWarning(const std::string& title, const std::string& text) override;
  bool AskYesNo(const std::string& text) override;
  std::string DocumentsFolder() override;

 private:
  QWidget& window_;
};

/// "Job Files (*.sqlite)|*.sqlite" as Qt writes it: "Job Files (*.sqlite)".
QString NameFilter(const std::string& filter);

}  // namespace kestrin::window
