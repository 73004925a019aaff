#include "app/mainFrm.h"

#include <QCloseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>

#include "app/buttons.h"
#include "app/frame.h"
#include "app/logo.h"
#include "app/makeControls.h"
#include "app/pictureBox.h"
#include "app/qtDialogs.h"

namespace kestrin {

namespace {

QString Member(const char* name, int index) { return QString("%1_%2").arg(name).arg(index); }

}  // namespace

MainFrm::MainFrm(const Surroundings& surroundings) {
  setObjectName("MainFrm");
  setWindowTitle("Kestrin");
  setWindowIcon(LogoIcon());
  MakeControls(*this);
  MakeTimers(*this);
  resize(kDesignWidth, kDesignHeight);

  auto& preview = *Find<PictureBox>("Picture1");
  controls_ = std::make_unique<WindowControls>(*this);
  if (surroundings.dialogs == nullptr) ownDialogs_ = std::make_unique<QtDialogs>(*this);
  Dialogs& dialogs = surroundings.dialogs ? *surroundings.dialogs : *ownDialogs_;
  sheet_ = std::make_unique<PrintFrm>(preview, surroundings.printers);
  const Ports ports{
      *controls_,          dialogs, events_, preview, *surroundings.files, *surroundings.drives,
      *surroundings.dates, *sheet_};
  flow_ = std::make_unique<MainFlow>(ports, surroundings.version, *surroundings.kinds);
  Connect();

  flow_->State().screenWidth = surroundings.screen.width;
  flow_->State().screenHeight = surroundings.screen.height;
  fillsScreen_ = TakesWholeScreen(surroundings.screen);
  if (fillsScreen_) resize(static_cast<int>(surroundings.screen.width), surroundings.screen.height);
  hook_.Hook(static_cast<std::uintptr_t>(winId()));
  flow_->Form_Load(surroundings.applicationFolder, surroundings.timeZoneOffset);
}

MainFrm::~MainFrm() = default;

template <class Type>
Type* MainFrm::Find(const QString& name) const {
  auto* found = findChild<Type*>(name);
  Q_ASSERT(found != nullptr);
  return found;
}

void MainFrm::Connect() {
  for (int i = 0; i < kKindCount; ++i) {
    connect(Find<GraphicalButton>(Member("Command1", i)), &GraphicalButton::Chosen, this,
            [this, i] { Run([this, i] { flow_->Command1_Click(i); }); });
    connect(Find<OptionButton>(Member("Option1", i)), &OptionButton::Chosen, this,
            [this, i] { Run([this, i] { flow_->Option1_Click(i); }); });
  }
  connect(Find<GraphicalButton>("Command2"), &GraphicalButton::Chosen, this,
          [this] { Run([this] { flow_->Command2_Click(); }); });
  connect(Find<GraphicalButton>("Command3"), &GraphicalButton::Chosen, this,
          [this] { Run([this] { flow_->Command3_Click(); }); });
  connect(Find<GraphicalButton>("Command4"), &GraphicalButton::Chosen, this,
          [this] { Run([this] { flow_->Command4_Click(); }); });
  ConnectTimer("Timer2", &MainFlow::Timer2_Timer);
  ConnectTimer("TimerPreview", &MainFlow::TimerPreview_Timer);
  ConnectTimer("TimerShape", &MainFlow::TimerShape_Timer);
  auto* content = Find<QWidget>("Picture2");
  connect(Find<QScrollBar>("HScroll1"), &QScrollBar::valueChanged, content,
          [content](int value) { content->move(-value, content->y()); });
  connect(Find<QScrollBar>("VScroll1"), &QScrollBar::valueChanged, content,
          [content](int value) { content->move(content->x(), -value); });
}

void MainFrm::ConnectTimer(const char* name, void (MainFlow::*tick)()) {
  connect(Find<QTimer>(name), &QTimer::timeout, this, [this, tick] {
    try {
      (flow_.get()->*tick)();
    } catch (const RunCancelled&) {
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
  } catch (const RunCancelled&) {
    closing_ = true;
  }
  SetBusy(false);
  running_ = false;
  if (closing_) close();
}

void MainFrm::SetBusy(bool busy) {
  for (const char* name : {"Frame1", "Frame2", "Frame4"}) Find<Frame>(name)->SetBusy(busy);
}

void MainFrm::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (!isMinimized()) Form_Resize();
}

void MainFrm::Form_Resize() {
  auto* vertical = Find<QScrollBar>("VScroll1");
  auto* horizontal = Find<QScrollBar>("HScroll1");
  auto* corner = Find<QWidget>("Frame3");
  const auto* content = Find<QWidget>("Picture2");
  LayoutInput input;
  input.clientWidth = width();
  input.clientHeight = height();
  input.pictureWidth = content->width();
  input.pictureHeight = content->height();
  input.verticalBarWidth = vertical->width();
  input.horizontalBarHeight = horizontal->height();
  const Layout layout = LayOut(input);
  const auto place = [](QScrollBar* bar, const BarLayout& as, bool upright) {
    const int offset = static_cast<int>(as.offset.value_or(upright ? bar->x() : bar->y()));
    const int length = static_cast<int>(as.length.value_or(upright ? bar->height() : bar->width()));
    upright ? bar->setGeometry(offset, bar->y(), bar->width(), length)
            : bar->setGeometry(bar->x(), offset, length, bar->height());
    bar->setMaximum(as.maximum);
    bar->setVisible(as.visible);
    if (!as.visible) bar->setValue(0);
  };
  place(vertical, layout.vertical, true);
  place(horizontal, layout.horizontal, false);
  corner->setVisible(layout.corner.has_value());
  if (layout.corner) {
    corner->move(static_cast<int>(layout.corner->left), static_cast<int>(layout.corner->top));
  }
}

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
  const WindowState& state = flow_->State();
  resize(QSize(static_cast<int>(state.screenWidth), state.screenHeight) - border);
  move(whole.topLeft());
}

void MainFrm::closeEvent(QCloseEvent* event) {
  if (running_) {
    closing_ = true;
    events_.Cancel();
    event->ignore();
    return;
  }
  Form_QueryUnload();
  event->accept();
}

void MainFrm::Form_QueryUnload() { hook_.Unhook(); }

}  // namespace kestrin
