#pragma once

#include <algorithm>
#include <array>
#include <span>

#include "base/runHost.h"
#include "geo/workingPlane.h"

namespace kestrin::coverage {

/// Calls `visit` with the points of a ring in degrees, as they are written: without those
/// equal to the one before, which points a millionth of a millimetre apart can be.
///
/// Yields to the host in between, as a whole field can be one ring; base::RunCancelled passes.
template <class Visit>
void ForEachDegrees(std::span<const geo::UtmPoint> ring, const geo::WorkingPlane& plane,
                    base::RunHost& host, Visit visit) {
  constexpr std::size_t kTogether = 64;
  std::array<geo::GeoPoint, kTogether> degrees{};
  geo::GeoPoint last;
  for (std::size_t i = 0; i < ring.size(); i += kTogether) {
    if (i > 0) host.Yield();
    const auto some = ring.subspan(i, std::min(kTogether, ring.size() - i));
    plane.ToGeo(some, degrees);
    for (std::size_t k = 0; k < some.size(); ++k) {
      if (i + k == 0 || degrees[k] != last) visit(degrees[k]);
      last = degrees[k];
    }
  }
}

}  // namespace kestrin::coverage
