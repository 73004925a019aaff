#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/runHost.h"

namespace kestrin::test {

/// A host that keeps what a run asked of it, and cancels at a row when told to.
class RecordingHost : public base::RunHost {
 public:
  void CountRow() override { ++rows; }
  void Yield() override {
    ++yields;
    if (cancelAt > 0 && yields >= cancelAt) throw base::RunCancelled();
  }
  void ShowMessage(const std::string& text) override { messages.push_back(text); }

  std::int64_t rows = 0;
  std::int64_t yields = 0;
  std::int64_t cancelAt = 0;
  std::vector<std::string> messages;
};

}  // namespace kestrin::test
