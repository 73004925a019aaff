#include "app/window/mainFrm.h"

#include <QCloseEvent>
#include <QScreen>
#include <QTimer>

#include "app/widgets/buttons.h"
#include "app/widgets/frame.h"
#include "app/widgets/logo.h"
#include "app/widgets/pictureBox.h"
#include "app/window/makeControls.h"
#include "app/window/qtDialogs.h"

namespace kestrin::window {

namespace {

QString Member(const char* name, int index) { return QString("%1_%2").arg(name).arg(index); }

}  // namespace

MainFrm::MainFrm(const Surroundings& surroundings) {
  setObjectName("MainFrm");
  setWindowTitle("Kestrin");
  setWindowIcon(widgets::LogoIcon());
  MakeControls(*this);
  MakeTimers(*this);
  scrolling_ = std::make_unique<Scrolling>(*this);
  resize(flow::kDesignWidth, flow::kDesignHeight);

  auto& preview = Find<widgets::PictureBox>(*this, "Picture1");
  controls_ = std::make_unique<WindowControls>(*this);
  if (surroundings.dialogs == nullptr) ownDialogs_ = std::make_unique<QtDialogs>(*this);
  flow::Dialogs& dialogs = surroundings.dialogs ? *surroundings.dialogs : *ownDialogs_;
  sheet_ = std::make_unique<print::PrintFrm>(preview, surroundings.printers);
  const flow::Ports ports{
      *controls_,          dialogs, events_, preview, *surroundings.files, *surroundings.drives,
      *surroundings.dates, *sheet_};
  flow_ = std::make_unique<flow::MainFlow>(ports, surroundings.version, *surroundings.kinds);
  Connect();

  flow_->State().screenWidth = surroundings.screen.width;
  flow_->State().screenHeight = surroundings.screen.height;
  fillsScreen_ = flow::TakesWholeScreen(surroundings.screen);
  if (fillsScreen_) resize(static_cast<int>(surroundings.screen.width), surroundings.screen.height);
  flow_->Form_Load(surroundings.applicationFolder, surroundings.timeZoneOffset,
                   [this] { hook_.Hook(static_cast<std::uintptr_t>(winId())); });
}

void MainFrm::Connect() {
  using widgets::GraphicalButton;
  for (int i = 0; i < exports::kKindCount; ++i) {
    OnChosen<GraphicalButton>(Member("Command1", i), [this, i] { flow_->Command1_Click(i); });
    OnChosen<widgets::OptionButton>(Member("Option1", i), [this, i] { flow_->Option1_Click(i); });
  }
  OnChosen<GraphicalButton>("Command2", [this] { flow_->Command2_Click(); });
  OnChosen<GraphicalButton>("Command3", [this] { flow_->Command3_Click(); });
  OnChosen<GraphicalButton>("Command4", [this] { flow_->Command4_Click(); });
  ConnectTimer("Timer2", &flow::MainFlow::Timer2_Timer);
  ConnectTimer("TimerPreview", &flow::MainFlow::TimerPreview_Timer);
  ConnectTimer("TimerShape", &flow::MainFlow::TimerShape_Timer);
}

template <class Button, class Procedure>
void MainFrm::OnChosen(const QString& name, Procedure procedure) {
  connect(&Find<Button>(*this, name), &Button::Chosen, this, [this, procedure] { Run(procedure); });
}

void MainFrm::ConnectTimer(const char* name, void (flow::MainFlow::*tick)()) {
  connect(&Find<QTimer>(*this, name), &QTimer::timeout, this, [this, tick] {
    try {
      (flow_.get()->*tick)();
    } catch (const base::RunCancelled&) {
      // The procedure that is to stop stands outside of this tick and hears of it
      // at its own next yield.
    }
  });
}

template <class Procedure>
void MainFrm::Run(Procedure procedure) {
  if (running_) return;
  running_ = true;
  SetBusy(true);
  events_.Begin();
  try {
    procedure();
  } catch (const base::RunCancelled&) {
    // Only closing the window cancels.
  }
  SetBusy(false);
  running_ = false;
  if (events_.IsCancelled()) close();
}

void MainFrm::SetBusy(bool busy) {
  for (const char* name : {"Frame1", "Frame2", "Frame4"})
    Find<widgets::Frame>(*this, name).SetBusy(busy);
}

void MainFrm::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (!isMinimized()) Form_Resize();
}

void MainFrm::Form_Resize() { scrolling_->LayOut(); }

void MainFrm::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!fillsScreen_) return;
  // How wide the desktop's border is shows only some time after the window does, and
  // some desktops have none.
  for (const int milliseconds : {0, 100, 500}) {
    QTimer::singleShot(milliseconds, this, &MainFrm::FillScreen);
  }
  fillsScreen_ = false;
}

void MainFrm::FillScreen() {
  const QRect whole = screen()->geometry();
  const QSize border = frameGeometry().size() - size();
  const flow::WindowState& state = flow_->State();
  resize(QSize(static_cast<int>(state.screenWidth), state.screenHeight) - border);
  move(whole.topLeft());
}

void MainFrm::closeEvent(QCloseEvent* event) {
  if (running_) {
    events_.Cancel();
    event->ignore();
    return;
  }
  Form_QueryUnload();
  event->accept();
}

void MainFrm::Form_QueryUnload() { hook_.Unhook(); }

}  // namespace kestrin::window
