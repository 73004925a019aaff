#include "app/window/scrolling.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWheelEvent>
#include <cstdlib>
#include <optional>

#include "app/flow/layout.h"
#include "app/window/makeControls.h"

namespace kestrin::window {

namespace {

void Place(QScrollBar& bar, const flow::BarLayout& as) {
  const bool upright = bar.orientation() == Qt::Vertical;
  const int offset = static_cast<int>(as.offset.value_or(upright ? bar.x() : bar.y()));
  const int length = static_cast<int>(as.length.value_or(upright ? bar.height() : bar.width()));
  upright ? bar.setGeometry(offset, bar.y(), bar.width(), length)
          : bar.setGeometry(bar.x(), offset, length, bar.height());
  bar.setMaximum(as.maximum);
  bar.setVisible(as.visible);
  if (!as.visible) bar.setValue(0);
}

std::optional<QAbstractSlider::SliderAction> ActionOf(int key) {
  switch (key) {
    case Qt::Key_PageUp:
      return QAbstractSlider::SliderPageStepSub;
    case Qt::Key_PageDown:
      return QAbstractSlider::SliderPageStepAdd;
    case Qt::Key_Home:
      return QAbstractSlider::SliderToMinimum;
    case Qt::Key_End:
      return QAbstractSlider::SliderToMaximum;
    default:
      return std::nullopt;
  }
}

/// Not by the mouse, which must find what it presses where it pressed it, nor with the
/// window's own focus, which comes back with a dialog's end.
bool ShowsFocus(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::OtherFocusReason;
}

/// Moves the content along one axis until a stretch of it is in view, its beginning first.
void ShowStretch(QScrollBar& bar, int begin, int end, int view) {
  if (bar.value() < end - view) bar.setValue(end - view);
  if (bar.value() > begin) bar.setValue(begin);
}

}  // namespace

Scrolling::Scrolling(QWidget& window)
    : window_(window),
      content_(Find<QWidget>(window, "Picture2")),
      vertical_(Find<QScrollBar>(window, "VScroll1")),
      horizontal_(Find<QScrollBar>(window, "HScroll1")),
      corner_(Find<QWidget>(window, "Frame3")) {
  QObject::connect(&horizontal_, &QScrollBar::valueChanged, &content_,
                   [this](int value) { content_.move(-value, content_.y()); });
  QObject::connect(&vertical_, &QScrollBar::valueChanged, &content_,
                   [this](int value) { content_.move(content_.x(), -value); });
  window.installEventFilter(this);
  for (QWidget* control : content_.findChildren<QWidget*>()) control->installEventFilter(this);
}

void Scrolling::LayOut() {
  flow::LayoutInput input;
  input.clientWidth = window_.width();
  input.clientHeight = window_.height();
  input.pictureWidth = content_.width();
  input.pictureHeight = content_.height();
  input.verticalBarWidth = vertical_.width();
  input.horizontalBarHeight = horizontal_.height();
  const flow::Layout layout = flow::LayOut(input);
  Place(vertical_, layout.vertical);
  Place(horizontal_, layout.horizontal);
  corner_.setVisible(layout.corner.has_value());
  if (layout.corner) {
    corner_.move(static_cast<int>(layout.corner->left), static_cast<int>(layout.corner->top));
  }
}

bool Scrolling::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &window_) {
    if (auto* wheel = dynamic_cast<QWheelEvent*>(event)) return TakesWheel(*wheel);
    const auto* key = dynamic_cast<QKeyEvent*>(event);
    return key != nullptr && key->type() == QEvent::KeyPress && TakesKey(*key);
  }
  const auto* focus = dynamic_cast<QFocusEvent*>(event);
  const auto* control = qobject_cast<QWidget*>(watched);
  if (focus != nullptr && focus->gotFocus() && control != nullptr && ShowsFocus(focus->reason())) {
    ShowControl(*control);
  }
  return false;
}

QSize Scrolling::View() const {
  return {window_.width() - (vertical_.isHidden() ? 0 : vertical_.width()),
          window_.height() - (horizontal_.isHidden() ? 0 : horizontal_.height())};
}

void Scrolling::ShowControl(const QWidget& control) {
  const QRect at(control.mapTo(&content_, QPoint(0, 0)), control.size());
  ShowStretch(horizontal_, at.left(), at.left() + at.width(), View().width());
  ShowStretch(vertical_, at.top(), at.top() + at.height(), View().height());
}

bool Scrolling::Scrolls(const QScrollBar& bar) const {
  if (!bar.isHidden()) return true;
  return &bar == &vertical_ ? content_.height() > View().height()
                            : content_.width() > View().width();
}

bool Scrolling::TakesKey(const QKeyEvent& event) {
  QScrollBar& bar = event.modifiers().testFlag(Qt::ShiftModifier) ? horizontal_ : vertical_;
  const auto action = ActionOf(event.key());
  if (!action || !Scrolls(bar)) return false;
  bar.triggerAction(*action);
  return true;
}

bool Scrolling::TakesWheel(QWheelEvent& event) {
  const QPoint turned = event.angleDelta();
  QScrollBar& bar = std::abs(turned.x()) > std::abs(turned.y()) ? horizontal_ : vertical_;
  if (!Scrolls(bar)) return false;
  QCoreApplication::sendEvent(&bar, &event);
  return true;
}

}  // namespace kestrin::window
