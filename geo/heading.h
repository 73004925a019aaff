#pragma once

#include <cmath>

#include "geo/points.h"

namespace kestrin::geo {

/// Where a vehicle looks, and with that the line of its boom, square to it. Everything
/// that is laid along a boom is laid by this one rule, in this order of operations: sets
/// are compared to the byte.
class Heading {
 public:
  /// `yaw` in radians, clockwise from north.
  explicit Heading(double yaw) : cosine_(std::cos(yaw)), sine_(std::sin(yaw)) {}

  /// The point so many metres to the right of the centre, across the heading.
  UtmPoint RightOf(UtmPoint centre, double metres) const {
    return {centre.easting + cosine_ * metres, centre.northing - sine_ * metres};
  }
  /// The point so many metres to the left of the centre.
  UtmPoint LeftOf(UtmPoint centre, double metres) const {
    return {centre.easting - cosine_ * metres, centre.northing + sine_ * metres};
  }

  /// The point so many metres ahead of the centre.
  UtmPoint AheadOf(UtmPoint centre, double metres) const {
    return {centre.easting + sine_ * metres, centre.northing + cosine_ * metres};
  }

 private:
  double cosine_;
  double sine_;
};

}  // namespace kestrin::geo
