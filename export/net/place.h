#pragma once

#include <tuple>

#include "geo/points.h"

namespace kestrin::net {

/// What points are put in order by: from west to east, then from south to north. An object, as
/// calls of a function that is handed over take longer than the comparison.
inline constexpr auto kPlace = [](geo::UtmPoint point) {
  return std::tuple(point.easting, point.northing);
};

}  // namespace kestrin::net
