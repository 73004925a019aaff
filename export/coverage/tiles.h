#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "export/coverage/planeGeometry.h"

namespace kestrin::coverage {

/// Square tiles of the plane and, for each, the runs of consecutive blocks whose
/// extents overlap it. Tiles come in sizes 4 times apart; a block goes to the
/// smallest not shorter than itself, hence into four tiles at most. Tiles far away
/// from each other may share their runs, which costs a look, not an answer.
class PolyTiles {
 public:
  /// Forgets all runs in constant time, but for once in four thousand million calls.
  void Clear();

  /// Numbers must not go back by more than the caller has forgotten; what is given
  /// again is simply there twice. Blocks with infinite or missing bounds are left out.
  void Add(std::uint32_t block, const geo::Box& extent);

  /// Whether an extent is small enough to be looked up tile by tile.
  bool CanFind(const geo::Box& extent) const {
    for (const Level& level : levels_) {
      const double scale = level.perMetre;
      if (!((extent.xMax - extent.xMin) * scale < kTilesAcross &&
            (extent.yMax - extent.yMin) * scale < kTilesAcross &&
            std::fabs(extent.xMin) * scale < kFarthest &&
            std::fabs(extent.yMin) * scale < kFarthest)) {
        return false;
      }
    }
    return true;
  }

  /// Calls `visit(first, last)` for runs that may overlap an extent that can be
  /// found, until a call returns true; tells whether one did.
  template <class Visit>
  bool AnyRun(const geo::Box& extent, Visit visit) const {
    for (std::size_t number = 0; number < levels_.size(); ++number) {
      const Cells cells = CellsOf(extent, levels_[number].perMetre);
      for (std::int64_t y = cells.yFirst; y <= cells.yLast; ++y) {
        for (std::int64_t x = cells.xFirst; x <= cells.xLast; ++x) {
          for (std::uint32_t at = Find(KeyOf(number, x, y)); at != kNone; at = runs_[at].next) {
            const Run& run = runs_[at];
            if (run.extent.Overlaps(extent) && visit(run.first, run.last)) return true;
          }
        }
      }
    }
    return false;
  }

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;
  static constexpr double kTilesAcross = 4;
  static constexpr double kFarthest = 1e15;

  struct Level {
    int exponent;     // tiles are 2 to this wide, in metres
    double perMetre;  // tiles per metre
  };
  struct Run {
    geo::Box extent;
    std::uint32_t first;
    std::uint32_t last;
    std::uint32_t next;
  };
  struct Slot {
    std::uint64_t key = 0;
    std::uint32_t head = kNone;
    std::uint32_t generation = 0;
  };
  struct Cells {
    std::int64_t xFirst, xLast, yFirst, yLast;
  };

  static Cells CellsOf(const geo::Box& extent, double perMetre) {
    const auto cell = [perMetre](double metres) {
      return static_cast<std::int64_t>(std::floor(metres * perMetre));
    };
    return {cell(extent.xMin), cell(extent.xMax), cell(extent.yMin), cell(extent.yMax)};
  }

  static std::uint64_t KeyOf(std::size_t level, std::int64_t x, std::int64_t y) {
    constexpr std::uint64_t kBits = (std::uint64_t{1} << 28) - 1;
    return static_cast<std::uint64_t>(level) << 56 | (static_cast<std::uint64_t>(x) & kBits) << 28 |
           (static_cast<std::uint64_t>(y) & kBits);
  }

  /// The slot of a key, or the free one where it would go.
  std::size_t SlotOf(std::uint64_t key) const {
    std::size_t at = (key * 0x9E3779B97F4A7C15u) >> shift_;
    while (slots_[at].generation == generation_ && slots_[at].key != key) {
      at = (at + 1) & (slots_.size() - 1);
    }
    return at;
  }

  std::uint32_t Find(std::uint64_t key) const {
    if (slots_.empty()) return kNone;
    const Slot& slot = slots_[SlotOf(key)];
    return slot.generation == generation_ ? slot.head : kNone;
  }

  std::size_t LevelFor(const geo::Box& extent);
  void AddToCell(std::uint64_t key, std::uint32_t block, const geo::Box& extent);
  void Grow();

  std::vector<Level> levels_;
  std::vector<Run> runs_;
  std::vector<Slot> slots_;
  std::size_t used_ = 0;
  unsigned shift_ = 0;
  std::uint32_t generation_ = 1;
};

}  // namespace kestrin::coverage
