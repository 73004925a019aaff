#include "app/widgets/buttons.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <algorithm>

#include "app/widgets/borders.h"
#include "app/widgets/colours.h"
#include "app/widgets/fonts.h"
#include "app/widgets/frame.h"

namespace kestrin::widgets {

ClickGuard::ClickGuard(QAbstractButton& button) : button_(button) {
  QObject::connect(&button, &QAbstractButton::pressed, &button,
                   [this] { pressedInReach_ = InputReaches(button_); });
  button.installEventFilter(this);
}

bool ClickGuard::Accepts() const { return pressedInReach_ && InputReaches(button_); }

bool ClickGuard::eventFilter(QObject*, QEvent* event) {
  const auto* key = dynamic_cast<QKeyEvent*>(event);
  if (key == nullptr || key->type() == QEvent::ShortcutOverride) return false;
  if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return false;
  // A key that is held then chooses once, and nothing in a dialog that it opened.
  QKeyEvent space(key->type(), Qt::Key_Space, key->modifiers(), " ", key->isAutoRepeat());
  QCoreApplication::sendEvent(&button_, &space);
  event->setAccepted(space.isAccepted());
  return true;
}

GraphicalButton::GraphicalButton(const QString& caption, QWidget* parent)
    : QAbstractButton(parent), guard_(*this) {
  setText(caption);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  connect(this, &QAbstractButton::clicked, this, [this] {
    if (guard_.Accepts()) emit Chosen();
  });
}

void GraphicalButton::SetBackground(std::optional<QColor> colour) {
  background_ = colour;
  update();
}

QColor GraphicalButton::ShownBackground() const {
  return background_.value_or(palette().color(QPalette::Active, QPalette::Button));
}

QColor GraphicalButton::ShownText() const {
  const QColor face = ShownBackground();
  const QColor lively =
      background_ ? TextOn(face) : palette().color(QPalette::Active, QPalette::ButtonText);
  return isEnabled() ? lively : Faint(lively, face);
}

void GraphicalButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor face = ShownBackground();
  const QColor text = ShownText();
  // A colour says how the action went, and must not change under the mouse.
  if (isDown())
    face = face.darker(115);
  else if (!background_ && underMouse() && isEnabled() && InputReaches(*this))
    face = face.lighter(104);
  const double line = BorderWidth(painter);
  const double half = line / 2;
  const QRectF edge = OnDevicePixels(painter, rect()).adjusted(half, half, -half, -half);
  const QColor border = IsDark(face) ? face.lighter(180) : face.darker(isEnabled() ? 190 : 140);
  painter.setPen(QPen(border, line));
  painter.setBrush(face);
  painter.drawRoundedRect(edge, 3, 3);
  if (hasFocus()) {
    painter.setPen(QPen(text, line, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(edge.adjusted(3, 3, -3, -3));
  }
  constexpr int kMargin = 4;
  const QRect inside = rect().adjusted(kMargin, 0, -kMargin, 0);
  painter.setFont(Fitted(font(), this->text(), inside.width()));
  painter.setPen(text);
  painter.drawText(inside.translated(0, isDown() ? 1 : 0), Qt::AlignCenter, this->text());
}

OptionButton::OptionButton(const QString& caption, QWidget* parent)
    : QRadioButton(caption, parent), guard_(*this) {
  connect(this, &QAbstractButton::clicked, this, [this] {
    if (guard_.Accepts()) emit Chosen();
  });
}

void OptionButton::PutTabStop(const QWidget& group) {
  const auto options = group.findChildren<OptionButton*>(QString(), Qt::FindDirectChildrenOnly);
  const auto checked = std::find_if(options.begin(), options.end(),
                                    [](const OptionButton* each) { return each->isChecked(); });
  if (checked == options.end()) return;
  for (OptionButton* each : options) {
    each->setFocusPolicy(each == *checked ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

void OptionButton::nextCheckState() {
  if (guard_.Accepts()) QRadioButton::nextCheckState();
}

void OptionButton::focusInEvent(QFocusEvent* event) {
  QRadioButton::focusInEvent(event);
  // Qt has put the stop where the focus is.
  PutTabStop(*parentWidget());
}

void OptionButton::initStyleOption(QStyleOptionButton* option) const {
  QRadioButton::initStyleOption(option);
  const QPalette& colours = palette();
  option->palette.setColor(QPalette::Disabled, QPalette::WindowText,
                           Faint(colours.color(QPalette::Active, QPalette::WindowText),
                                 colours.color(QPalette::Active, QPalette::Window)));
}

}  // namespace kestrin::widgets
