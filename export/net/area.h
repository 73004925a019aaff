#pragma once

#include <span>

#include "export/coverage/planeGeometry.h"

namespace kestrin::net {

/// The signed area of a closed line in square metres, positive when it runs counter-clockwise.
/// Summed from its first point: far from the plane's origin the coordinates themselves would
/// leave too few digits.
inline double SignedArea(std::span<const geo::UtmPoint> line) {
  double twice = 0;
  for (std::size_t i = 2; i < line.size(); ++i) {
    twice += coverage::Cross(line[0], line[i - 1], line[i]);
  }
  return twice / 2;
}

}  // namespace kestrin::net
