#pragma once

#include <QWidget>

namespace kestrin::window {

/// Makes every control of the layout table inside the window, which owns them.
void MakeControls(QWidget& window);

/// Makes the window's timers, none of them ticking.
void MakeTimers(QObject& window);

/// One of them.
template <class Type>
Type& Find(const QObject& window, const QString& name) {
  auto* found = window.findChild<Type*>(name);
  Q_ASSERT(found != nullptr);
  return *found;
}

}  // namespace kestrin::window
