#include "export/net/hull.h"

#include <cmath>

namespace kestrin::net {

Hull::Hull(const Runs& runs, const Run& run) {
  const Boom boom = runs.At(run.first, run.span);
  origin_ = boom.left;
  const double east = boom.right.easting - boom.left.easting;
  const double north = boom.right.northing - boom.left.northing;
  const double length = std::hypot(east, north);
  if (length > 0) {
    east_ = east / length;
    north_ = north / length;
  }
  for (std::uint32_t step = run.first; step <= run.last; ++step) {
    const Boom at = runs.At(step, run.span);
    for (const geo::UtmPoint end : {at.left, at.right}) bounds_.Widen(Across(end), Along(end));
  }
}

geo::UtmPoint Hull::At(double across, double along) const {
  return {origin_.easting + across * east_ - along * north_,
          origin_.northing + across * north_ + along * east_};
}

bool Hull::LeavesOut(const Hull& other) const {
  // Wider than what the grid moves points by.
  constexpr double kGap = 0.002;
  geo::Box bounds;
  for (const double across : {other.bounds_.xMin, other.bounds_.xMax}) {
    for (const double along : {other.bounds_.yMin, other.bounds_.yMax}) {
      const geo::UtmPoint corner = other.At(across, along);
      bounds.Widen(Across(corner), Along(corner));
    }
  }
  return bounds.xMin > bounds_.xMax + kGap || bounds.xMax < bounds_.xMin - kGap ||
         bounds.yMin > bounds_.yMax + kGap || bounds.yMax < bounds_.yMin - kGap;
}

}  // namespace kestrin::net
