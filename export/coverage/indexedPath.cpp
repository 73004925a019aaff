#include "export/coverage/indexedPath.h"

#include <algorithm>
#include <cmath>

namespace kestrin::coverage {
namespace {

// How far to look, in lengths of the newest three segments: much further ahead than
// to the sides, as most ways are straight for a while. Never further than some tiles.
constexpr double kAhead = 12;
constexpr double kAside = 2;
constexpr double kFarthest = 32;

/// An extent and some ground around it.
geo::Box Widened(const geo::Box& extent, double by) {
  return {extent.xMin - by, extent.yMin - by, extent.xMax + by, extent.yMax + by};
}

}  // namespace

void IndexedPath::Restart() {
  points_.clear();
  blocks_.Clear();
  open_ = {};
  tiles_.Clear();
  tiled_ = false;
  around_ = {};
}

void IndexedPath::Truncate(std::size_t count) {
  points_.resize(count);
  const std::size_t settled = count > kUnsettled ? count - kUnsettled : 0;
  blocks_.Truncate(std::min(blocks_.Size(), settled >> kBlockBits));
  open_ = {};
  for (std::size_t i = blocks_.Size() << kBlockBits; i < settled; ++i) WidenOpen(i);
  around_ = {};
}

void IndexedPath::WidenOpen(std::size_t segment) {
  // One that meets nothing would only make its block be asked from everywhere.
  const geo::Box extent = ExtentOf(segment);
  if (extent.IsFinite()) open_.Widen(extent);
}

void IndexedPath::Settle(std::size_t segment) {
  WidenOpen(segment);
  if (((segment + 1) & ((std::size_t{1} << kBlockBits) - 1)) != 0) return;
  blocks_.Add(open_);
  open_ = {};
  if (tiled_) {
    AddToTiles(blocks_.Size() - 1);
  } else if (blocks_.Size() > kUntiled) {
    tiled_ = true;
    for (std::size_t block = 0; block < blocks_.Size(); ++block) AddToTiles(block);
  }
}

void IndexedPath::AddToTiles(std::size_t block) {
  tiles_.Add(static_cast<std::uint32_t>(block), blocks_[block]);
}

void IndexedPath::LookAround(const geo::Box& extent) {
  around_ = extent;
  const geo::UtmPoint from = points_[points_.size() - 1 - kUnsettled];
  const geo::UtmPoint to = points_.back();
  const double east = to.easting - from.easting;
  const double north = to.northing - from.northing;
  const double length = std::max(std::fabs(east), std::fabs(north));
  if (length * kAside < kFarthest) {
    const double times = std::min(kAhead, kFarthest / length);
    around_.Widen(geo::Box::Of(to, {to.easting + times * east, to.northing + times * north}));
    around_ = Widened(around_, kAside * length);
  }
  near_.clear();
  AnyBlock(around_, [&](std::size_t block) {
    near_.push_back({blocks_[block], block});
    return false;
  });
  // A block that lies in several tiles was found in each.
  const auto before = [](const Block& a, const Block& b) { return a.number < b.number; };
  const auto same = [](const Block& a, const Block& b) { return a.number == b.number; };
  std::sort(near_.begin(), near_.end(), before);
  near_.erase(std::unique(near_.begin(), near_.end(), same), near_.end());
  lookedUp_ = blocks_.Size();
}

}  // namespace kestrin::coverage
