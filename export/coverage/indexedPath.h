#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "export/coverage/extentBlocks.h"
#include "export/coverage/planeGeometry.h"
#include "export/coverage/tiles.h"

namespace kestrin::coverage {

/// A polyline that grows at its end and finds its segments near a place at a cost
/// that hardly depends on how many there are. Segment i leads from point i to
/// point i + 1.
///
/// Segments are kept in blocks of 16: the blocks' extents, and for each tile of the
/// plane the runs of blocks that pass through it. What the newest segment may touch
/// is looked up for some way around it at once, so that for most rows of a way that
/// goes on through open ground a comparison or two answer. Long or odd segments
/// cost time, never memory or correctness.
class IndexedPath {
 public:
  /// Empties the trail; what it has allocated stays.
  void Restart();

  void Append(geo::UtmPoint point) {
    points_.push_back(point);
    if (points_.size() > kUnsettled) Settle(points_.size() - 1 - kUnsettled);
  }

  /// Keeps only the first `count` points.
  void Truncate(std::size_t count);

  /// Moves a point within the extent of the segment that leads on from it, or onto
  /// the point after it.
  void Move(std::size_t i, geo::UtmPoint to) { points_[i] = to; }

  std::size_t Size() const { return points_.size(); }
  const geo::UtmPoint& operator[](std::size_t i) const { return points_[i]; }
  const geo::UtmPoint& Back() const { return points_.back(); }
  const std::vector<geo::UtmPoint>& Points() const { return points_; }

  /// Calls `visit(i)` for the segments before segment `end` whose extents overlap
  /// `extent`, in no particular order and some more than once, until a call
  /// returns true; tells whether one did. Segments of no length and segments with
  /// infinite or missing coordinates, which meet nothing, may be left out.
  template <class Visit>
  bool AnyNear(const geo::Box& extent, std::size_t end, Visit visit) const {
    return AnyBlock(extent, [&](std::size_t block) { return AnyOf(block, end, extent, visit); }) ||
           AnyBetween(blocks_.Size() << kBlockBits, end, extent, visit);
  }

  /// The same with the extent of the newest segment, for all segments but that one
  /// and the two before it; of a trail of four points or more.
  template <class Visit>
  bool AnyNearNewest(Visit visit) {
    const std::size_t end = points_.size() - kUnsettled;
    const geo::Box extent = geo::Box::Of(points_[points_.size() - 2], points_.back());
    if (!around_.Contains(extent) || blocks_.Size() > lookedUp_ + kMostNew) LookAround(extent);
    for (const Block& block : near_) {
      if (block.extent.Overlaps(extent) && AnyOf(block.number, end, extent, visit)) return true;
    }
    for (std::size_t block = lookedUp_; block < blocks_.Size(); ++block) {
      if (blocks_[block].Overlaps(extent) && AnyOf(block, end, extent, visit)) return true;
    }
    return open_.Overlaps(extent) && AnyBetween(blocks_.Size() << kBlockBits, end, extent, visit);
  }

 private:
  /// The newest segment and the two before it are in no block: they touch each other.
  static constexpr std::size_t kUnsettled = 3;
  static constexpr unsigned kBlockBits = 4;
  /// Trails of so many blocks have no tiles.
  static constexpr std::size_t kUntiled = 8;
  /// A way on the spot makes blocks without leaving the ground looked up.
  static constexpr std::size_t kMostNew = 4;

  struct Block {
    geo::Box extent;
    std::size_t number;
  };

  void Settle(std::size_t segment);
  void WidenOpen(std::size_t segment);
  void AddToTiles(std::size_t block);
  void LookAround(const geo::Box& extent);

  geo::Box ExtentOf(std::size_t segment) const {
    return geo::Box::Of(points_[segment], points_[segment + 1]);
  }

  template <class Visit>
  bool AnyBlock(const geo::Box& extent, Visit visit) const {
    if (!tiled_ || !tiles_.CanFind(extent)) {
      return blocks_.AnyOverlapping(0, blocks_.Size(), extent, visit);
    }
    return tiles_.AnyRun(extent, [&](std::size_t first, std::size_t last) {
      const std::size_t end = last + 1 < blocks_.Size() ? last + 1 : blocks_.Size();
      return blocks_.AnyOverlapping(first, end, extent, visit);
    });
  }

  template <class Visit>
  bool AnyOf(std::size_t block, std::size_t end, const geo::Box& extent, Visit& visit) const {
    const std::size_t behind = (block + 1) << kBlockBits;
    return AnyBetween(block << kBlockBits, behind < end ? behind : end, extent, visit);
  }

  template <class Visit>
  bool AnyBetween(std::size_t begin, std::size_t end, const geo::Box& extent, Visit& visit) const {
    for (std::size_t i = begin; i < end; ++i) {
      if (ExtentOf(i).Overlaps(extent) && visit(i)) return true;
    }
    return false;
  }

  std::vector<geo::UtmPoint> points_;
  ExtentBlocks blocks_;
  geo::Box open_;  // of the settled segments that do not fill a block yet
  PolyTiles tiles_;
  bool tiled_ = false;

  geo::Box around_;           // the ground looked up,
  std::vector<Block> near_;   // what blocks are there
  std::size_t lookedUp_ = 0;  // of the first so many
};

}  // namespace kestrin::coverage
