#include "app/window/makeControls.h"

#include <QScrollBar>
#include <QTimer>

#include "app/widgets/accessibleButton.h"
#include "app/widgets/buttons.h"
#include "app/widgets/caption.h"
#include "app/widgets/colours.h"
#include "app/widgets/frame.h"
#include "app/widgets/pictureBox.h"
#include "app/widgets/shapes.h"
#include "app/window/layoutTable.h"

namespace kestrin::window {

namespace {

constexpr int kLargeChange = 800;
/// A line of the content: the height of its one-line labels.
constexpr int kSmallChange = 17;

QScrollBar* MakeScrollBar(Qt::Orientation orientation, QWidget* parent) {
  auto* bar = new QScrollBar(orientation, parent);
  bar->setPageStep(kLargeChange);
  bar->setSingleStep(kSmallChange);
  return bar;
}

/// Covers what lies below it.
QWidget* MakeBox(QWidget* parent) {
  auto* box = new QWidget(parent);
  box->setAutoFillBackground(true);
  return box;
}

widgets::Caption* MakeCaption(const ControlSpec& spec, QWidget* parent) {
  auto* caption = new widgets::Caption(parent);
  caption->SetPurpose(spec.words);
  caption->SetText(spec.caption);
  caption->SetColour(spec.colour);
  caption->SetBorder(spec.kind == ControlKind::kBordered);
  if (spec.kind == ControlKind::kCentred) caption->setAlignment(Qt::AlignHCenter);
  return caption;
}

QWidget* MakeWidget(const ControlSpec& spec, QWidget* parent) {
  switch (spec.kind) {
    case ControlKind::kBox:
      return MakeBox(parent);
    case ControlKind::kFrame:
      return new widgets::Frame(spec.caption, parent);
    case ControlKind::kButton:
      return new widgets::GraphicalButton(spec.caption, parent);
    case ControlKind::kOption:
      return new widgets::OptionButton(spec.caption, parent);
    case ControlKind::kCentred:
    case ControlKind::kBordered:
      return MakeCaption(spec, parent);
    case ControlKind::kBar:
      return new widgets::FilledShape(widgets::kDarkBlue, parent);
    case ControlKind::kLine:
      return new widgets::Line(parent);
    case ControlKind::kPicture:
      return new widgets::PictureBox(parent);
    case ControlKind::kImage:
      return new widgets::LogoView(parent);
    case ControlKind::kVScroll:
      return MakeScrollBar(Qt::Vertical, parent);
    case ControlKind::kHScroll:
      return MakeScrollBar(Qt::Horizontal, parent);
  }
  return nullptr;
}

void MakeControl(const ControlSpec& spec, QWidget& window) {
  const QString container(spec.parent);
  QWidget* parent = container.isEmpty() ? &window : window.findChild<QWidget*>(container);
  QWidget* widget = MakeWidget(spec, parent);
  widget->setObjectName(spec.name);
  widget->setGeometry(widgets::ToPixels(spec.place));
  widget->setFont(widgets::DesignFont(spec.font));
  if (qobject_cast<widgets::Caption*>(widget) == nullptr) widget->setAccessibleName(spec.words);
  widget->setVisible(spec.visible);
}

}  // namespace

void MakeControls(QWidget& window) {
  widgets::InstallAccessibleButtons();
  for (const ControlSpec& spec : LayoutTable()) MakeControl(spec, window);
}

void MakeTimers(QObject& window) {
  struct TimerSpec {
    const char* name;
    int interval;
  };
  for (const TimerSpec& spec :
       {TimerSpec{"Timer2", 3000}, TimerSpec{"TimerPreview", 10}, TimerSpec{"TimerShape", 100}}) {
    auto* timer = new QTimer(&window);
    timer->setObjectName(spec.name);
    timer->setInterval(spec.interval);
  }
}

}  // namespace kestrin::window
