#include "export/ground/indexedPath.h"

#include <cmath>

namespace kestrin::ground {
namespace {

// How far to look, in lengths of the newest segment: further ahead than to the sides,
// as most ways are straight for a while.
constexpr double kAhead = 24;
constexpr double kAside = 8;
// So many times as far is looked where the next looks look, unless that is too much ground to
// go through each time: after a long segment there is no end to it.
constexpr double kWider = 6;
constexpr std::size_t kMostBlocks = 512;

}  // namespace

void IndexedPath::Truncate(std::size_t count) {
  points_.resize(count);
  blocks_.Truncate(count == 0 ? 0 : (count - 1) / kBlock);
  near_.ground = far_.ground = {};
}

void IndexedPath::AddBlock() {
  geo::Box block;
  for (std::size_t i = blocks_.Size() * kBlock; i + 1 < points_.size(); ++i) block.Widen(BoxOf(i));
  blocks_.Add(block);
}

void IndexedPath::LookAround(const geo::Box& box) {
  const auto addFrom = [this](std::size_t first, LookedUp& found) {
    blocks_.AnyOverlapping(first, found.ground, [&](std::size_t block) {
      found.blocks.push_back(block);
      return false;
    });
    found.of = blocks_.Size();
  };
  near_.ground = Ahead(1);
  near_.ground.Widen(box);
  if (!far_.ground.Contains(near_.ground) || far_.blocks.size() > kMostBlocks) {
    far_.ground = Ahead(kWider);
    far_.ground.Widen(near_.ground);
    far_.blocks.clear();
    addFrom(0, far_);
  }
  near_.blocks.clear();
  for (const std::size_t block : far_.blocks) {
    if (blocks_[block].Overlaps(near_.ground)) near_.blocks.push_back(block);
  }
  addFrom(far_.of, near_);
}

geo::Box IndexedPath::Ahead(double times) const {
  const geo::UtmPoint from = points_[points_.size() - 2];
  const geo::UtmPoint to = points_.back();
  const double east = times * (to.easting - from.easting);
  const double north = times * (to.northing - from.northing);
  const double aside = kAside * std::max(std::fabs(east), std::fabs(north));
  return geo::Box::Of(from, {to.easting + kAhead * east, to.northing + kAhead * north})
      .Grown(aside);
}

}  // namespace kestrin::ground
