#pragma once

#include <QWidget>
#include <memory>

#include "app/flow/layout.h"
#include "app/flow/mainFlow.h"
#include "app/platform/scrollBarHook.h"
#include "app/print/printFrm.h"
#include "app/window/scrolling.h"
#include "app/window/windowControls.h"
#include "app/window/windowEvents.h"

namespace kestrin::window {

/// What the window finds around it; a test puts its own in place.
struct Surroundings {
  std::string applicationFolder;
  flow::ScreenSize screen;
  std::int32_t timeZoneOffset = 0;
  flow::ProgramVersion version;
  const exports::ExportKinds* kinds = nullptr;
  /// Nothing: message boxes and file dialogs over the window.
  flow::Dialogs* dialogs = nullptr;
  base::FileSystem* files = nullptr;
  platform::Drives* drives = nullptr;
  flow::DateStyle* dates = nullptr;
  print::PrintFrm::PrinterSource printers;
};

/// The program's window: owns the controls and the state, and wires each control's
/// events to the procedure of its name. No rule lives here.
class MainFrm : public QWidget {
  Q_OBJECT

 public:
  /// What `surroundings` points to outlives the window.
  explicit MainFrm(const Surroundings& surroundings);

  const flow::WindowState& State() const { return flow_->State(); }
  const WindowEvents& EventLoop() const { return events_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void Connect();
  template <class Button, class Procedure>
  void OnChosen(const QString& name, Procedure procedure);
  void ConnectTimer(const char* name, void (flow::MainFlow::*tick)());
  template <class Procedure>
  void Run(Procedure procedure);
  void SetBusy(bool busy);

  void Form_Resize();
  void Form_QueryUnload();
  void FillScreen();

  bool running_ = false;  ///< a procedure runs, and none starts meanwhile
  bool fillsScreen_ = false;
  WindowEvents events_;
  platform::ScrollBar hook_;
  std::unique_ptr<Scrolling> scrolling_;
  std::unique_ptr<WindowControls> controls_;
  std::unique_ptr<flow::Dialogs> ownDialogs_;
  std::unique_ptr<print::PrintFrm> sheet_;
  std::unique_ptr<flow::MainFlow> flow_;
};

}  // namespace kestrin::window
