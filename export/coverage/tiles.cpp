#include "export/coverage/tiles.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace kestrin::coverage {
namespace {

// 16 rows' way at field speed: fewer tiles than blocks, few passes in one tile.
constexpr int kSmallestExponent = 4;
constexpr int kExponentStep = 2;
constexpr std::size_t kFirstSlots = 256;

}  // namespace

void PolyTiles::Clear() {
  levels_.clear();
  runs_.clear();
  used_ = 0;
  if (++generation_ == 0) {
    slots_.clear();
    generation_ = 1;
  }
}

void PolyTiles::Add(std::uint32_t block, const geo::Box& extent) {
  if (!extent.IsFinite()) return;
  const std::size_t level = LevelFor(extent);
  const Cells cells = CellsOf(extent, levels_[level].perMetre);
  for (std::int64_t y = cells.yFirst; y <= cells.yLast; ++y) {
    for (std::int64_t x = cells.xFirst; x <= cells.xLast; ++x) {
      AddToCell(KeyOf(level, x, y), block, extent);
    }
  }
}

std::size_t PolyTiles::LevelFor(const geo::Box& extent) {
  // Far out, doubles are too coarse to number small tiles.
  const double length =
      std::max({extent.xMax - extent.xMin, extent.yMax - extent.yMin,
                std::fabs(extent.xMin) * 0x1p-40, std::fabs(extent.xMax) * 0x1p-40,
                std::fabs(extent.yMin) * 0x1p-40, std::fabs(extent.yMax) * 0x1p-40});
  int exponent = kSmallestExponent;
  if (length > std::ldexp(1.0, kSmallestExponent)) {
    const int needed = std::isfinite(length) ? std::ilogb(length) + 1 : 1025;
    exponent += (needed - exponent + kExponentStep - 1) / kExponentStep * kExponentStep;
  }
  for (std::size_t i = 0; i < levels_.size(); ++i) {
    if (levels_[i].exponent == exponent) return i;
  }
  levels_.push_back({exponent, std::ldexp(1.0, -exponent)});
  return levels_.size() - 1;
}

void PolyTiles::AddToCell(std::uint64_t key, std::uint32_t block, const geo::Box& extent) {
  if (used_ * 2 >= slots_.size()) Grow();
  Slot& slot = slots_[SlotOf(key)];
  if (slot.generation != generation_) {
    slot = {key, kNone, generation_};
    ++used_;
  }
  if (slot.head != kNone) {
    Run& newest = runs_[slot.head];
    if (newest.first <= block && block <= newest.last + 1) {
      newest.last = std::max(newest.last, block);
      newest.extent.Widen(extent);
      return;
    }
  }
  runs_.push_back({extent, block, block, slot.head});
  slot.head = static_cast<std::uint32_t>(runs_.size() - 1);
}

void PolyTiles::Grow() {
  std::vector<Slot> old = std::exchange(slots_, {});
  slots_.resize(std::max(kFirstSlots, old.size() * 2));
  shift_ = 64 - static_cast<unsigned>(std::countr_zero(slots_.size()));
  for (const Slot& slot : old) {
    if (slot.generation == generation_) slots_[SlotOf(slot.key)] = slot;
  }
}

}  // namespace kestrin::coverage
