#pragma once

#include <stdexcept>
#include <string>

#include "base/runHost.h"

namespace kestrin::bench {

/// A host that nobody watches; a benchmark whose export has something to say is void.
class SilentHost : public base::RunHost {
 public:
  void CountRow() override {}
  void Yield() override {}
  void ShowMessage(const std::string& text) override { throw std::runtime_error(text); }
};

}  // namespace kestrin::bench
