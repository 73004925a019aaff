#pragma once

#include <cstdint>

namespace kestrin::sample {

/// A stream of chance that is the same for a seed with every compiler and library
/// (splitmix64; the standard distributions differ between libraries).
class Randomness {
 public:
  explicit Randomness(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
  }

  /// 0 up to, not including, 1.
  double Uniform() { return static_cast<double>(Next() >> 11) * 0x1p-53; }

  bool Chance(double probability) { return Uniform() < probability; }

  /// Nearly normal with mean 0 and deviation 1, never beyond 3.5; plain sums, so
  /// that no mathematics library has a say in it.
  double Noise() { return (Uniform() + Uniform() + Uniform() + Uniform() - 2) * 1.7320508; }

 private:
  std::uint64_t state_;
};

}  // namespace kestrin::sample
