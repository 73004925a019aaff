#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "geo/box.h"

namespace kestrin::ground {

/// The boxes of consecutive blocks of something, and those of each 16, 256, 4096, ...
/// of them together, by which a search passes over what lies elsewhere.
///
/// Its price: a search costs some hundred comparisons among a million neighbours, more
/// where many boxes lie around the box asked for. No box is an error: a NaN bound
/// overlaps nothing, an infinite one everything on its side.
class BlockBoxes {
 public:
  void Add(const geo::Box& block) {
    levels_[0].push_back(block);
    std::size_t count = levels_[0].size();
    for (unsigned level = 1; level < kLevels && (count & kMask) == 0; ++level) {
      const std::vector<geo::Box>& lower = levels_[level - 1];
      geo::Box together;
      for (std::size_t i = count - kFan; i < count; ++i) together.Widen(lower[i]);
      levels_[level].push_back(together);
      count = levels_[level].size();
    }
  }

  /// Keeps only the first `count` blocks.
  void Truncate(std::size_t count) {
    for (auto& level : levels_) {
      level.resize(count);
      count >>= kBits;
    }
  }

  std::size_t Size() const { return levels_[0].size(); }
  const geo::Box& operator[](std::size_t block) const { return levels_[0][block]; }

  /// Calls `visit(block)` for the blocks from `first` on whose boxes overlap `box`, in
  /// order, until a call returns true; tells whether one did.
  template <class Visit>
  bool AnyOverlapping(std::size_t first, const geo::Box& box, Visit visit) const {
    for (std::size_t block = first; block < Size();) {
      if (const std::size_t passed = Passed(block, box)) {
        block += passed;
        continue;
      }
      if (visit(block)) return true;
      ++block;
    }
    return false;
  }

 private:
  static constexpr unsigned kBits = 4;
  static constexpr unsigned kLevels = 6;
  static constexpr std::size_t kFan = std::size_t{1} << kBits;
  static constexpr std::size_t kMask = kFan - 1;

  /// How many blocks from this one on lie elsewhere for certain.
  std::size_t Passed(std::size_t block, const geo::Box& box) const {
    if (levels_[0][block].Overlaps(box)) return 0;
    std::size_t passed = 1;
    for (unsigned level = 1; level < kLevels && (block & kMask) == 0; ++level) {
      block >>= kBits;
      if (block >= levels_[level].size() || levels_[level][block].Overlaps(box)) break;
      passed <<= kBits;
    }
    return passed;
  }

  std::array<std::vector<geo::Box>, kLevels> levels_;
};

}  // namespace kestrin::ground
