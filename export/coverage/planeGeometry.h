#pragma once

#include <span>

#include "geo/box.h"
#include "geo/points.h"

/// The plane geometry of the coverage polygons: UTM metres throughout.

namespace kestrin::coverage {

/// What both results of FindLineIntersection are when the lines have no point in
/// common, or all of them.
inline constexpr double kNoIntersection = 1E+38;

/// Where the infinite line through (x1, y1) and (x2, y2) meets the infinite line
/// through (x3, y3) and (x4, y4). Whether that lies on the segments is for the
/// caller to decide.
void FindLineIntersection(double x1, double y1, double x2, double y2, double x3, double y3,
                          double x4, double y4, double& ix, double& iy);

/// The signed area of a closed ring of points, in square metres: positive when it
/// runs counter-clockwise. The last point is followed by the first; a ring that
/// repeats its first point at the end has the same area.
double PolygonArea(std::span<const geo::UtmPoint> points);

/// Whether the two segments meet, tested as the outline's clean-up does: their
/// lines' intersection lies within both extents, bounds included.
bool SegmentsMeet(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d);

/// On which side of the line from `a` to `b` the point lies: 1 left, -1 right, 0 on
/// the line or not to be told. Exact as far as the differences of the coordinates are.
int SideOf(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint point);

/// Whether the segments a-b and c-d cross inside both, touching at no end.
bool SegmentsCross(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d);

/// Whether the point, on the line from `a` to `b`, lies on the segment and not at
/// its end `b`.
bool LiesBeforeEnd(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint point);

/// Whether the way from `in` over the corner to `out` changes sides of the way from
/// `a` over the same corner to `b` there, having no direction in common with it.
bool CrossesAtCorner(geo::UtmPoint corner, geo::UtmPoint in, geo::UtmPoint out, geo::UtmPoint a,
                     geo::UtmPoint b);

/// Twice the signed area of the triangle o, a, b.
inline double Cross(geo::UtmPoint o, geo::UtmPoint a, geo::UtmPoint b) {
  return (a.easting - o.easting) * (b.northing - o.northing) -
         (b.easting - o.easting) * (a.northing - o.northing);
}

}  // namespace kestrin::coverage
