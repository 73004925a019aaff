#include "tools/sample/rateControl.h"

#include <cmath>

namespace kestrin::sample {
namespace {

// A damped swing: several seconds to a target, one visible overshoot.
constexpr double kPull = 0.45;
constexpr double kDamping = 0.55;
constexpr double kUnrest = 0.012;  // of the level

}  // namespace

void RateControl::Tick(double factor, Randomness& chance) {
  for (std::size_t slot = 0; slot < products_->size(); ++slot) {
    const Product& product = (*products_)[slot];
    if (product.level == 0) continue;
    if (factor == 0) {
      // A closed valve reads nothing at once.
      value_[slot] = drift_[slot] = shown_[slot] = 0;
      continue;
    }
    const double goal = product.level * factor;
    drift_[slot] = drift_[slot] * (1 - kDamping) + (goal - value_[slot]) * kPull +
                   chance.Noise() * kUnrest * product.level;
    value_[slot] = std::fmax(0.0, value_[slot] + drift_[slot]);
    shown_[slot] = std::round(value_[slot] / product.quantum) * product.quantum;
  }
}

}  // namespace kestrin::sample
