#include "export/polySegments.h"

namespace kestrin {

void SegmentTrail::Restart() {
  points_.clear();
  for (auto& level : blocks_) level.clear();
  tiles_.Clear();
  tiled_ = false;
}

void SegmentTrail::Append(UtmPoint point) {
  points_.push_back(point);
  if (points_.size() < 2) return;
  const std::size_t segment = points_.size() - 2;
  AddToBlocks(segment);
  if (tiled_) {
    AddToTiles(segment);
  } else if (points_.size() > kTiledFrom) {
    tiled_ = true;
    for (std::size_t i = 0; i <= segment; ++i) AddToTiles(i);
  }
}

void SegmentTrail::Truncate(std::size_t count) { points_.resize(count); }

void SegmentTrail::AddToBlocks(std::size_t segment) {
  const Extent extent = Extent::Of(points_[segment], points_[segment + 1]);
  for (unsigned level = 0; level < kBlockLevels; ++level) {
    const unsigned bits = kBlockBits * (level + 1);
    const std::size_t block = segment >> bits;
    std::vector<Extent>& blocks = blocks_[level];
    if (block == blocks.size()) {
      blocks.emplace_back();
    } else if ((segment & ((std::size_t{1} << bits) - 1)) == 0) {
      blocks[block] = {};
    } else if (blocks[block].Contains(extent)) {
      // So do the larger blocks, each of which holds its smaller ones.
      return;
    }
    blocks[block].Widen(extent);
  }
}

void SegmentTrail::AddToTiles(std::size_t segment) {
  const UtmPoint& a = points_[segment];
  const UtmPoint& b = points_[segment + 1];
  if (a == b) return;
  tiles_.Add(static_cast<std::uint32_t>(segment), Extent::Of(a, b));
}

}  // namespace kestrin
