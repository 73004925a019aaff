#include "app/windowEvents.h"

#include <QCoreApplication>
#include <algorithm>

#include "jobstore/runHost.h"

namespace kestrin {

void WindowEvents::DoEvents() {
  if (running_) return;
  Pump();
  if (cancelled_) throw RunCancelled();
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

}  // namespace kestrin
