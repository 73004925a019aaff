#pragma once

#include <cstddef>
#include <vector>

#include "export/coverage/planeGeometry.h"

namespace kestrin::coverage {

/// The extents of consecutive blocks of something, and those of each 16, 256,
/// 4096, ... of them together, by which a search passes over what lies elsewhere.
class ExtentBlocks {
 public:
  void Clear() { Truncate(0); }

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

  /// Calls `visit(block)` for the blocks from `begin` to before `end` that overlap
  /// an extent, in order, until a call returns true; tells whether one did.
  template <class Visit>
  bool AnyOverlapping(std::size_t begin, std::size_t end, const geo::Box& extent,
                      Visit&& visit) const {
    for (std::size_t block = begin; block < end;) {
      if (const std::size_t passed = Passed(block, extent)) {
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
  std::size_t Passed(std::size_t block, const geo::Box& extent) const {
    if (levels_[0][block].Overlaps(extent)) return 0;
    std::size_t passed = 1;
    for (unsigned level = 1; level < kLevels && (block & kMask) == 0; ++level) {
      block >>= kBits;
      if (block >= levels_[level].size() || levels_[level][block].Overlaps(extent)) break;
      passed <<= kBits;
    }
    return passed;
  }

  std::vector<geo::Box> levels_[kLevels];
};

}  // namespace kestrin::coverage
