#pragma once

#include <cstddef>
#include <functional>
#include <utility>

namespace kestrin::base {

/// A host's yield for loops whose steps take no longer than a call of it: called at one step in
/// some dozens, over all the loops that share it. What it throws passes.
class LoopYield {
 public:
  explicit LoopYield(std::function<void()> yield) : yield_(std::move(yield)) {}

  void Step() {
    if (++steps_ % kStepsBetween == 0) yield_();
  }

  /// For a step that takes long itself.
  void Now() { yield_(); }

 private:
  static constexpr std::size_t kStepsBetween = 64;

  std::function<void()> yield_;
  std::size_t steps_ = 0;
};

}  // namespace kestrin::base
