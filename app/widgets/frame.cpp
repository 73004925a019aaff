#include "app/widgets/frame.h"

#include <QApplication>
#include <QChildEvent>
#include <QPainter>
#include <utility>

#include "app/widgets/borders.h"
#include "app/widgets/buttons.h"
#include "app/widgets/colours.h"

namespace kestrin::widgets {

namespace {

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::ContextMenu:
      return true;
    default:
      return false;
  }
}

}  // namespace

Frame::Frame(QString caption, QWidget* parent) : QWidget(parent), caption_(std::move(caption)) {}

void Frame::SetInputEnabled(bool enabled) {
  const bool accepted = AcceptsInput();
  enabled_ = enabled;
  Update(accepted);
}

void Frame::SetBusy(bool busy) {
  const bool accepted = AcceptsInput();
  busy_ = busy;
  Update(accepted);
}

void Frame::Update(bool accepted) {
  if (accepted && !AcceptsInput()) TakeFocusAway();
  if (!accepted && AcceptsInput()) GiveFocusBack();
}

void Frame::TakeFocusAway() {
  const auto children = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  for (QWidget* child : children) {
    policies_[child] = child->focusPolicy();
    child->setFocusPolicy(Qt::NoFocus);
    if (child->hasFocus()) {
      focused_ = child;
      child->clearFocus();
    }
  }
}

void Frame::GiveFocusBack() {
  const auto children = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  for (QWidget* child : children) {
    if (policies_.contains(child)) child->setFocusPolicy(policies_.value(child));
  }
  policies_.clear();
  OptionButton::PutTabStop(*this);
  QWidget* last = focused_.data();
  focused_.clear();
  if (last != nullptr && last->isEnabled() && window()->focusWidget() == nullptr)
    last->setFocus(Qt::ActiveWindowFocusReason);
}

bool Frame::eventFilter(QObject* watched, QEvent* event) {
  if (!AcceptsInput()) {
    if (IsInput(event->type())) return true;
    // Focus set by hand, by an assistive tool for one, does not stay.
    if (auto* control = qobject_cast<QWidget*>(watched);
        control != nullptr && event->type() == QEvent::FocusIn) {
      control->clearFocus();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void Frame::childEvent(QChildEvent* event) {
  if (event->added() && event->child()->isWidgetType()) event->child()->installEventFilter(this);
  QWidget::childEvent(event);
}

void Frame::paintEvent(QPaintEvent*) {
  constexpr int kCaptionLeft = 8;
  constexpr int kCaptionGap = 3;
  QPainter painter(this);
  const QFontMetrics metrics(font());
  const int top = caption_.isEmpty() ? 0 : metrics.height() / 2;
  const QColor background = palette().color(QPalette::Window);
  DrawBorder(painter, rect().adjusted(0, top, 0, 0), Readable(kGrey, background));
  if (caption_.isEmpty()) return;
  const int width = metrics.horizontalAdvance(caption_);
  painter.fillRect(kCaptionLeft - kCaptionGap, 0, width + 2 * kCaptionGap, metrics.height(),
                   background);
  painter.setPen(Readable(kDarkRed, background));
  painter.drawText(kCaptionLeft, metrics.ascent(), caption_);
}

bool InputReaches(const QWidget& control) {
  for (const QWidget* at = control.parentWidget(); at != nullptr; at = at->parentWidget()) {
    const auto* frame = qobject_cast<const Frame*>(at);
    if (frame != nullptr && !frame->AcceptsInput()) return false;
  }
  return true;
}

}  // namespace kestrin::widgets
