#pragma once

#include <array>
#include <vector>

#include "tools/sample/randomness.h"
#include "tools/sample/scenario.h"

namespace kestrin::sample {

/// Rate control that hunts around its level: it overshoots after every change and
/// never comes quite to rest. Ticks once a second.
class RateControl {
 public:
  explicit RateControl(const std::vector<Product>& products) : products_(&products) {}

  /// One second on; `factor` scales every level, 0 shuts off.
  void Tick(double factor, Randomness& chance);

  /// What the meters show now, in their steps.
  const std::array<double, jobstore::kProductSlots>& Shown() const { return shown_; }

 private:
  const std::vector<Product>* products_;
  std::array<double, jobstore::kProductSlots> value_{};
  std::array<double, jobstore::kProductSlots> drift_{};
  std::array<double, jobstore::kProductSlots> shown_{};
};

}  // namespace kestrin::sample
