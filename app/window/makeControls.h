#pragma once

#include <QWidget>

namespace kestrin::window {

/// Makes every control of the layout table inside the window, which owns them.
void MakeControls(QWidget& window);

/// Makes the window's timers, none of them ticking.
void MakeTimers(QObject& window);

}  // namespace kestrin::window
