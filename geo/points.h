#pragma once

#include <cmath>

/// A place, in the two frames there are beside the picture's. Each frame has a type of its
/// own, so that no northing is taken for a latitude.

namespace kestrin::geo {

/// Metres in the plane of a UTM zone.
struct UtmPoint {
  double easting = 0;
  double northing = 0;

  bool IsFinite() const { return std::isfinite(easting) && std::isfinite(northing); }

  friend bool operator==(const UtmPoint&, const UtmPoint&) = default;
};

/// Decimal degrees, NAD83, east and north positive.
struct GeoPoint {
  double longitude = 0;
  double latitude = 0;

  friend bool operator==(const GeoPoint&, const GeoPoint&) = default;
};

}  // namespace kestrin::geo
