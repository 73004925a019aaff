#include "app/window/windowEvents.h"

#include <QCoreApplication>
#include <algorithm>

#include "base/runHost.h"

namespace kestrin::window {

void WindowEvents::DoEvents() {
  Pump();
  if (cancelled_ && !running_) throw base::RunCancelled();
}

void WindowEvents::Pump() {
  if (running_) return;
  longestGap_ = std::max(longestGap_, Clock::now() - last_);
  running_ = true;
  QCoreApplication::processEvents();
  running_ = false;
  last_ = Clock::now();
}

void WindowEvents::Begin() {
  last_ = Clock::now();
  longestGap_ = {};
  cancelled_ = false;
}

}  // namespace kestrin::window
