#include "export/ground/indexedPath.h"

#include <cmath>

namespace kestrin::ground {
namespace {

// How far to look, in lengths of the newest segment: further ahead than to the sides,
// as most ways are straight for a while.
constexpr double kAhead = 24;
constexpr double kAside = 8;

}  // namespace

void IndexedPath::Truncate(std::size_t count) {
  points_.resize(count);
  blocks_.Truncate(count == 0 ? 0 : (count - 1) / kBlock);
  around_ = {};
}

void IndexedPath::AddBlock() {
  geo::Box block;
  for (std::size_t i = blocks_.Size() * kBlock; i + 1 < points_.size(); ++i) block.Widen(BoxOf(i));
  blocks_.Add(block);
}

void IndexedPath::LookAround() {
  const geo::UtmPoint from = points_[points_.size() - 2];
  const geo::UtmPoint to = points_.back();
  const double east = to.easting - from.easting;
  const double north = to.northing - from.northing;
  const double aside = kAside * std::max(std::fabs(east), std::fabs(north));
  around_ = geo::Box::Of(from, {to.easting + kAhead * east, to.northing + kAhead * north});
  around_ = around_.Grown(aside);
  near_.clear();
  blocks_.AnyOverlapping(0, around_, [&](std::size_t block) {
    near_.push_back(block);
    return false;
  });
  lookedUp_ = blocks_.Size();
}

}  // namespace kestrin::ground
