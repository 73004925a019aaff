#include "export/ground/planeGeometry.h"

#include <cmath>
#include <cstddef>

namespace kestrin::ground {
namespace {

/// Sign of a*b - c*d. Rounding is monotonic, so unequal rounded products are in
/// the right order; of equal ones the rounding errors decide.
int SignOfDifference(double a, double b, double c, double d) {
  const double left = a * b;
  const double right = c * d;
  if (left != right) return left > right ? 1 : -1;
  const double leftError = std::fma(a, b, -left);
  const double rightError = std::fma(c, d, -right);
  return leftError > rightError ? 1 : leftError < rightError ? -1 : 0;
}

}  // namespace

void FindLineIntersection(double x1, double y1, double x2, double y2, double x3, double y3,
                          double x4, double y4, double& ix, double& iy) {
  const double dx12 = x2 - x1;
  const double dy12 = y2 - y1;
  const double dx34 = x4 - x3;
  const double dy34 = y4 - y3;
  const double denom = dy12 * dx34 - dx12 * dy34;
  if (denom == 0) {
    ix = iy = kNoIntersection;
    return;
  }
  const double t1 = ((x1 - x3) * dy34 + (y3 - y1) * dx34) / denom;
  ix = x1 + dx12 * t1;
  iy = y1 + dy12 * t1;
}

double PolygonArea(std::span<const geo::UtmPoint> points) {
  double sum = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const geo::UtmPoint& here = points[i];
    const geo::UtmPoint& next = points[i + 1 < points.size() ? i + 1 : 0];
    sum += here.easting * next.northing - next.easting * here.northing;
  }
  return 0.5 * sum;
}

double SignedArea(std::span<const geo::UtmPoint> points) {
  double twice = 0;
  for (std::size_t i = 1; i + 1 < points.size(); ++i) {
    twice += Cross(points[0], points[i], points[i + 1]);
  }
  return twice / 2;
}

double SquareDistance(geo::UtmPoint a, geo::UtmPoint b) {
  const double east = a.easting - b.easting;
  const double north = a.northing - b.northing;
  return east * east + north * north;
}

geo::UtmPoint MeetingPoint(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d) {
  geo::UtmPoint meeting;
  FindLineIntersection(a.easting, a.northing, b.easting, b.northing, c.easting, c.northing,
                       d.easting, d.northing, meeting.easting, meeting.northing);
  return meeting;
}

bool SegmentsMeet(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d) {
  const geo::UtmPoint meeting = MeetingPoint(a, b, c, d);
  return meeting.easting < kNoIntersection && geo::Box::Of(a, b).Holds(meeting) &&
         geo::Box::Of(c, d).Holds(meeting);
}

int SideOf(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint point) {
  return SignOfDifference(b.easting - a.easting, point.northing - a.northing,
                          point.easting - a.easting, b.northing - a.northing);
}

bool SegmentsCross(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d) {
  return SideOf(a, b, c) * SideOf(a, b, d) < 0 && SideOf(c, d, a) * SideOf(c, d, b) < 0;
}

}  // namespace kestrin::ground
