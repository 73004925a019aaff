#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "export/polyGeometry.h"
#include "export/polyTiles.h"

namespace kestrin {

/// A polyline that grows at its end and finds its segments near a place at a cost
/// that hardly depends on how many there are. Segment i leads from point i to
/// point i + 1.
///
/// Two things are kept beside the points: the extents of each 16, 256, 4096, ...
/// consecutive segments, by which a scan skips what lies elsewhere, and tiles of
/// the plane with the runs of segments that pass through each. Long or odd
/// segments cost time, never memory or correctness.
class SegmentTrail {
 public:
  /// Empties the trail; what it has allocated stays.
  void Restart();

  void Append(UtmPoint point);

  /// Keeps only the first `count` points.
  void Truncate(std::size_t count);

  /// Moves a point within the extent of the segment that leads on from it, or onto
  /// the point after it.
  void Move(std::size_t i, UtmPoint to) { points_[i] = to; }

  std::size_t Size() const { return points_.size(); }
  const UtmPoint& operator[](std::size_t i) const { return points_[i]; }
  const UtmPoint& Back() const { return points_.back(); }
  const std::vector<UtmPoint>& Points() const { return points_; }

  /// Calls `visit(i)` for the segments before segment `end` whose extents overlap
  /// `extent`, in no particular order and some more than once, until a call
  /// returns true; tells whether one did. Segments of no length and segments with
  /// infinite or missing coordinates, which meet nothing, may be left out.
  template <class Visit>
  bool AnyNear(const Extent& extent, std::size_t end, Visit visit) const {
    if (points_.size() <= kTiledFrom || !tiles_.CanFind(extent)) {
      return Scan(0, end, extent, visit);
    }
    return tiles_.AnyRun(extent, [&](std::size_t first, std::size_t last) {
      return first < end && Scan(first, last + 1 < end ? last + 1 : end, extent, visit);
    });
  }

 private:
  /// Trails up to this length are scanned whole, and have no tiles before they first
  /// pass it.
  static constexpr std::size_t kTiledFrom = 64;
  static constexpr unsigned kBlockBits = 4;
  static constexpr unsigned kBlockLevels = 6;

  void AddToBlocks(std::size_t segment);
  void AddToTiles(std::size_t segment);

  template <class Visit>
  bool Scan(std::size_t begin, std::size_t end, const Extent& extent, Visit& visit) const {
    for (std::size_t i = begin; i < end;) {
      if (const std::size_t skipped = Skip(i, extent)) {
        i += skipped;
        continue;
      }
      if (Extent::Of(points_[i], points_[i + 1]).Overlaps(extent) && visit(i)) return true;
      ++i;
    }
    return false;
  }

  /// Length of the largest block that begins at segment i and lies elsewhere; 0
  /// when there is none.
  std::size_t Skip(std::size_t i, const Extent& extent) const {
    std::size_t skipped = 0;
    for (unsigned level = 0; level < kBlockLevels; ++level) {
      const unsigned bits = kBlockBits * (level + 1);
      if ((i & ((std::size_t{1} << bits) - 1)) != 0) break;
      const std::size_t block = i >> bits;
      if (block >= blocks_[level].size() || blocks_[level][block].Overlaps(extent)) break;
      skipped = std::size_t{1} << bits;
    }
    return skipped;
  }

  std::vector<UtmPoint> points_;
  std::vector<Extent> blocks_[kBlockLevels];
  PolyTiles tiles_;
  bool tiled_ = false;
};

}  // namespace kestrin
