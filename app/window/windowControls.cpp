#include "app/window/windowControls.h"

#include <QTimer>
#include <cmath>
#include <optional>

#include "app/widgets/buttons.h"
#include "app/widgets/caption.h"
#include "app/widgets/colours.h"
#include "app/widgets/frame.h"
#include "export/exportKinds.h"

namespace kestrin::window {
namespace {

/// Nothing: the desktop's own.
std::optional<QColor> ColourOf(flow::Background background) {
  switch (background) {
    case flow::Background::kButtonFace:
      break;
    case flow::Background::kWorking:
      return widgets::kPaleYellow;
    case flow::Background::kSuccess:
      return widgets::kGreen;
    case flow::Background::kFailure:
      return widgets::kRed;
  }
  return std::nullopt;
}

}  // namespace

WindowControls::WindowControls(QWidget& window) {
  for (QObject* child : window.findChildren<QObject*>()) {
    if (!child->objectName().isEmpty()) byName_.insert(child->objectName(), child);
  }
}

template <class Type>
Type* WindowControls::As(flow::ControlId id) const {
  return qobject_cast<Type*>(byName_.value(QString::fromStdString(flow::NameOf(id))));
}

void WindowControls::SetEnabled(flow::ControlId id, bool enabled) {
  if (auto* timer = As<QTimer>(id)) {
    if (enabled != timer->isActive()) enabled ? timer->start() : timer->stop();
  } else if (auto* frame = As<widgets::Frame>(id)) {
    frame->SetInputEnabled(enabled);
  } else if (auto* widget = As<QWidget>(id)) {
    widget->setEnabled(enabled);
  }
}

void WindowControls::SetVisible(flow::ControlId id, bool visible) {
  if (auto* widget = As<QWidget>(id)) widget->setVisible(visible);
}

void WindowControls::SetCaption(flow::ControlId id, const std::string& caption) {
  if (auto* label = As<widgets::Caption>(id)) label->SetText(QString::fromStdString(caption));
}

std::string WindowControls::Caption(flow::ControlId id) const {
  const auto* label = As<QLabel>(id);
  return label == nullptr ? std::string() : label->text().toStdString();
}

void WindowControls::SetBackColor(flow::ControlId id, flow::Background background) {
  if (auto* button = As<widgets::GraphicalButton>(id)) button->SetBackground(ColourOf(background));
}

void WindowControls::SetWidth(flow::ControlId id, double width) {
  auto* widget = As<QWidget>(id);
  if (widget != nullptr) widget->resize(static_cast<int>(std::lround(width)), widget->height());
}

double WindowControls::Width(flow::ControlId id) const {
  const auto* widget = As<QWidget>(id);
  return widget == nullptr ? 0 : widget->width();
}

int WindowControls::SelectedPreviewKind() const {
  for (int i = 0; i < exports::kKindCount; ++i) {
    if (As<QAbstractButton>({flow::Control::kPreviewKind, i})->isChecked()) return i;
  }
  return -1;
}

void WindowControls::SelectPreviewKind(int index) {
  if (auto* option = As<QAbstractButton>({flow::Control::kPreviewKind, index}))
    option->setChecked(true);
}

}  // namespace kestrin::window
