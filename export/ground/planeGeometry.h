#pragma once

#include <span>

#include "geo/box.h"
#include "geo/points.h"

/// The plane geometry of the coverage polygons: UTM metres throughout, easting as x and
/// northing as y. A "line" has no ends, a "segment" has two.
///
/// Nothing fails. A segment with a NaN end neither meets nor crosses another; NaN and
/// infinite coordinates make meeting points and areas NaN or infinite.

namespace kestrin::ground {

/// What both results of FindLineIntersection are when the lines are parallel, or the
/// same, or one of them has no length.
inline constexpr double kNoIntersection = 1E+38;

/// Where the line through (x1, y1) and (x2, y2) meets the line through (x3, y3) and
/// (x4, y4). Whether that lies on the segments is for the caller to decide.
void FindLineIntersection(double x1, double y1, double x2, double y2, double x3, double y3,
                          double x4, double y4, double& ix, double& iy);

/// The signed area of a closed ring of points, in square metres: positive when it runs
/// counter-clockwise. The last point is followed by the first; a ring that repeats its
/// first point at the end has the same area.
double PolygonArea(std::span<const geo::UtmPoint> points);

/// The same, measured from the first point: so far from the plane's origin the rounding
/// errors would be larger than a thin ring.
double SignedArea(std::span<const geo::UtmPoint> points);

/// Twice the signed area of the triangle o, a, b: positive when counter-clockwise.
inline double Cross(geo::UtmPoint o, geo::UtmPoint a, geo::UtmPoint b) {
  return (a.easting - o.easting) * (b.northing - o.northing) -
         (b.easting - o.easting) * (a.northing - o.northing);
}

/// The product of the ways from `o` to `a` and to `b`: positive when they lead the same
/// way.
inline double Dot(geo::UtmPoint o, geo::UtmPoint a, geo::UtmPoint b) {
  return (a.easting - o.easting) * (b.easting - o.easting) +
         (a.northing - o.northing) * (b.northing - o.northing);
}

/// A point turned by so many quarters of a circle about the origin, counter-clockwise: no
/// digit changes.
inline geo::UtmPoint QuarterTurned(geo::UtmPoint point, int quarters) {
  for (int i = 0; i < quarters; ++i) point = {-point.northing, point.easting};
  return point;
}

double SquareDistance(geo::UtmPoint a, geo::UtmPoint b);

/// FindLineIntersection() of the lines a-b and c-d.
geo::UtmPoint MeetingPoint(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d);

/// Whether the segments meet by the rule that cuts polygons: their lines' meeting point,
/// as rounded, lies within both segments' boxes, bounds included.
bool SegmentsMeet(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d);

/// On which side of the line from `a` to `b` the point lies: 1 left, -1 right, 0 on the
/// line. Exact but for the rounding of the differences between coordinates.
int SideOf(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint point);

/// Whether the segments a-b and c-d cross inside both, touching at no end.
bool SegmentsCross(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d);

}  // namespace kestrin::ground
