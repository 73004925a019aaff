#pragma once

#include "app/flow/ports.h"
#include "app/flow/windowState.h"
#include "base/runHost.h"

namespace kestrin::flow {

/// The window as exports and previews see it.
class WindowHost final : public base::RunHost {
 public:
  WindowHost(Progress& progress, Events& events, Dialogs& dialogs)
      : progress_(progress), events_(events), dialogs_(dialogs) {}

  void CountRow() override { ++progress_.count; }
  void Yield() override { events_.Yield(); }
  void YieldInsideStep() noexcept override { events_.YieldWithoutThrow(); }
  void ShowMessage(const std::string& text) override {
    ++messages_;
    dialogs_.ShowMessage(text);
  }

  /// Messages shown so far.
  int Messages() const { return messages_; }

 private:
  Progress& progress_;
  Events& events_;
  Dialogs& dialogs_;
  int messages_ = 0;
};

}  // namespace kestrin::flow
