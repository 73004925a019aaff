#include "app/windowControls.h"

#include <QTimer>
#include <cmath>
#include <optional>

#include "app/buttons.h"
#include "app/caption.h"
#include "app/colours.h"
#include "app/frame.h"
#include "export/commandColours.h"
#include "export/exportKinds.h"

namespace kestrin {

WindowControls::WindowControls(QWidget& window) {
  for (QObject* child : window.findChildren<QObject*>()) {
    if (!child->objectName().isEmpty()) byName_.insert(child->objectName(), child);
  }
}

template <class Type>
Type* WindowControls::As(ControlId id) const {
  return qobject_cast<Type*>(byName_.value(QString::fromStdString(NameOf(id))));
}

void WindowControls::SetEnabled(ControlId id, bool enabled) {
  if (auto* timer = As<QTimer>(id)) {
    if (enabled != timer->isActive()) enabled ? timer->start() : timer->stop();
  } else if (auto* frame = As<Frame>(id)) {
    frame->SetInputEnabled(enabled);
  } else if (auto* widget = As<QWidget>(id)) {
    widget->setEnabled(enabled);
  }
}

void WindowControls::SetVisible(ControlId id, bool visible) {
  if (auto* widget = As<QWidget>(id)) widget->setVisible(visible);
}

void WindowControls::SetCaption(ControlId id, const std::string& caption) {
  const QString text = QString::fromStdString(caption);
  if (auto* label = As<kestrin::Caption>(id)) label->SetText(text);
  if (auto* button = As<QAbstractButton>(id)) button->setText(text);
}

std::string WindowControls::Caption(ControlId id) const {
  if (const auto* label = As<QLabel>(id)) return label->text().toStdString();
  if (const auto* button = As<QAbstractButton>(id)) return button->text().toStdString();
  return {};
}

void WindowControls::SetBackColor(ControlId id, std::uint32_t bgr) {
  auto* button = As<GraphicalButton>(id);
  if (button == nullptr) return;
  button->SetBackground(bgr == kButtonFace ? std::nullopt : std::optional(FromBgr(bgr)));
}

void WindowControls::SetWidth(ControlId id, double width) {
  auto* widget = As<QWidget>(id);
  if (widget != nullptr) widget->resize(static_cast<int>(std::lround(width)), widget->height());
}

double WindowControls::Width(ControlId id) const {
  const auto* widget = As<QWidget>(id);
  return widget == nullptr ? 0 : widget->width();
}

int WindowControls::SelectedOption1() const {
  for (int i = 0; i < kKindCount; ++i) {
    if (As<QAbstractButton>({Control::kOption1, i})->isChecked()) return i;
  }
  return -1;
}

void WindowControls::SelectOption1(int index) {
  if (auto* option = As<QAbstractButton>({Control::kOption1, index})) option->setChecked(true);
}

}  // namespace kestrin
