#include "export/ground/convexHull.h"

#include <algorithm>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

/// Draws the hull's northern side on to a point, of points from west to east.
void DrawTo(geo::UtmPoint point, Line& side) {
  while (side.size() > 1 && SideOf(side[side.size() - 2], side.back(), point) >= 0) {
    side.pop_back();
  }
  side.push_back(point);
}

}  // namespace

Line ConvexHullOf(Line points) {
  std::sort(points.begin(), points.end(), [](const geo::UtmPoint& a, const geo::UtmPoint& b) {
    return a.easting != b.easting ? a.easting < b.easting : a.northing < b.northing;
  });
  Line north;
  for (const geo::UtmPoint& point : points) DrawTo(point, north);
  Line south;
  for (std::size_t i = points.size(); i-- > 0;) DrawTo(points[i], south);
  if (north.size() < 2 || north.size() + south.size() < 5) return {};
  north.insert(north.end(), south.begin() + 1, south.end());
  return north;
}

}  // namespace kestrin::ground
