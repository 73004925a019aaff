#include "app/makeControls.h"

#include <QScrollBar>
#include <QTimer>

#include "app/accessibleButton.h"
#include "app/buttons.h"
#include "app/caption.h"
#include "app/colours.h"
#include "app/frame.h"
#include "app/layoutTable.h"
#include "app/pictureBox.h"
#include "app/shapes.h"

namespace kestrin {

namespace {

constexpr int kLargeChange = 800;

QScrollBar* MakeScrollBar(Qt::Orientation orientation, QWidget* parent) {
  auto* bar = new QScrollBar(orientation, parent);
  bar->setPageStep(kLargeChange);
  return bar;
}

Caption* MakeCaption(const ControlSpec& spec, QWidget* parent) {
  auto* caption = new Caption(parent);
  caption->SetPurpose(spec.words);
  caption->SetText(spec.caption);
  caption->SetColour(spec.colour);
  caption->SetBorder(spec.kind == ControlKind::kTrack || spec.kind == ControlKind::kBordered);
  if (spec.kind == ControlKind::kCentred) caption->setAlignment(Qt::AlignHCenter);
  return caption;
}

QWidget* MakeWidget(const ControlSpec& spec, QWidget* parent) {
  switch (spec.kind) {
    case ControlKind::kBox:
      return new QWidget(parent);
    case ControlKind::kFrame:
      return new Frame(spec.caption, parent);
    case ControlKind::kButton:
      return new GraphicalButton(spec.caption, parent);
    case ControlKind::kOption:
      return new OptionButton(spec.caption, parent);
    case ControlKind::kCentred:
    case ControlKind::kTrack:
    case ControlKind::kBordered:
      return MakeCaption(spec, parent);
    case ControlKind::kBar:
      return new FilledShape(kDarkBlue, parent);
    case ControlKind::kLine:
      return new FilledShape(kGrey, parent);
    case ControlKind::kPicture:
      return new PictureBox(parent);
    case ControlKind::kImage:
      return new LogoView(parent);
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
  widget->setGeometry(ToPixels(spec.place));
  widget->setFont(WindowFont(spec.font));
  if (qobject_cast<Caption*>(widget) == nullptr) widget->setAccessibleName(spec.words);
  widget->setVisible(spec.visible);
}

}  // namespace

void MakeControls(QWidget& window) {
  InstallAccessibleButtons();
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

}  // namespace kestrin
