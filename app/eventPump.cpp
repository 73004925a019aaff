#include "app/eventPump.h"

#include <QCoreApplication>
#include <algorithm>

namespace kestrin {

void EventPump::Run() {
  longestGap_ = std::max(longestGap_, Clock::now() - last_);
  QCoreApplication::processEvents();
  last_ = Clock::now();
}

void EventPump::Restart() {
  last_ = Clock::now();
  longestGap_ = {};
}

}  // namespace kestrin
