#pragma once

#include <limits>

#include "geo/points.h"

namespace kestrin::geo {

/// The bounds of what has been taken in, in whichever frame that was: x is easting or
/// longitude, y northing or latitude. Bounds of nothing hold nothing and overlap nothing.
/// A NaN among the bounds stays there, and with it they hold and overlap nothing.
struct Box {
  static constexpr double kNothing = std::numeric_limits<double>::infinity();

  double xMin = kNothing;
  double yMin = kNothing;
  double xMax = -kNothing;
  double yMax = -kNothing;

  /// The bounds of two points.
  static Box Of(UtmPoint a, UtmPoint b) {
    return {a.easting < b.easting ? a.easting : b.easting,
            a.northing < b.northing ? a.northing : b.northing,
            a.easting > b.easting ? a.easting : b.easting,
            a.northing > b.northing ? a.northing : b.northing};
  }

  /// Whether nothing has been taken in yet.
  bool IsEmpty() const { return xMin > xMax; }

  /// The first point sets all four bounds; a later one lowers a minimum or else raises a
  /// maximum.
  void Widen(double x, double y) {
    if (IsEmpty()) *this = {x, y, x, y};
    if (x < xMin) {
      xMin = x;
    } else if (x > xMax) {
      xMax = x;
    }
    if (y < yMin) {
      yMin = y;
    } else if (y > yMax) {
      yMax = y;
    }
  }
  void Widen(UtmPoint point) { Widen(point.easting, point.northing); }
  void Widen(GeoPoint point) { Widen(point.longitude, point.latitude); }

  void Widen(const Box& other) {
    if (other.xMin < xMin) xMin = other.xMin;
    if (other.xMax > xMax) xMax = other.xMax;
    if (other.yMin < yMin) yMin = other.yMin;
    if (other.yMax > yMax) yMax = other.yMax;
  }

  /// The bounds with so much more to every side.
  Box Grown(double by) const { return {xMin - by, yMin - by, xMax + by, yMax + by}; }

  /// Whether the point lies within the bounds, or on them.
  bool Holds(double x, double y) const { return xMin <= x && x <= xMax && yMin <= y && y <= yMax; }
  bool Holds(UtmPoint point) const { return Holds(point.easting, point.northing); }

  bool Contains(const Box& other) const {
    return xMin <= other.xMin && other.xMax <= xMax && yMin <= other.yMin && other.yMax <= yMax;
  }

  /// Whether the two have a point in common, bounds included.
  bool Overlaps(const Box& other) const {
    return xMin <= other.xMax && other.xMin <= xMax && yMin <= other.yMax && other.yMin <= yMax;
  }

  friend bool operator==(const Box&, const Box&) = default;
};

}  // namespace kestrin::geo
