#include "tests/export/coverage/literalCoverage.h"

#include <algorithm>

namespace kestrin::test {
namespace {

int LastOf(const std::vector<geo::UtmPoint>& list) { return static_cast<int>(list.size()) - 1; }

geo::UtmPoint At(const std::vector<geo::UtmPoint>& list, int index) {
  return list.at(static_cast<std::size_t>(index));
}

bool Within(double value, double a, double b) {
  return std::min(a, b) <= value && value <= std::max(a, b);
}

/// Whether the lines through both segments meet within the extents of both.
bool Hit(geo::UtmPoint p1, geo::UtmPoint p2, geo::UtmPoint p3, geo::UtmPoint p4) {
  const double dx12 = p2.easting - p1.easting;
  const double dy12 = p2.northing - p1.northing;
  const double dx34 = p4.easting - p3.easting;
  const double dy34 = p4.northing - p3.northing;
  const double denom = dy12 * dx34 - dx12 * dy34;
  double ix = 1E+38;
  double iy = 1E+38;
  if (denom != 0) {
    const double t1 =
        ((p1.easting - p3.easting) * dy34 + (p3.northing - p1.northing) * dx34) / denom;
    ix = p1.easting + dx12 * t1;
    iy = p1.northing + dy12 * t1;
  }
  return ix < 1E+38 && Within(ix, p1.easting, p2.easting) && Within(ix, p3.easting, p4.easting) &&
         Within(iy, p1.northing, p2.northing) && Within(iy, p3.northing, p4.northing);
}

/// The only phase that decides where a polygon is cut.
int FirstPhase(const std::vector<geo::UtmPoint>& points, int startIndex, int endIndex) {
  if (!(endIndex - startIndex > 2)) return 0;
  const geo::UtmPoint from = At(points, endIndex - 1);
  const geo::UtmPoint to = At(points, endIndex);
  for (int i = startIndex; i <= endIndex - 3; ++i) {
    if (Hit(from, to, At(points, i), At(points, i + 1))) return endIndex;
  }
  return 0;
}

void AddToRing(std::vector<geo::UtmPoint>& ring, geo::UtmPoint point) {
  if (ring.empty() || point.easting != ring.back().easting ||
      point.northing != ring.back().northing) {
    ring.push_back(point);
  }
}

std::size_t DistinctPoints(std::vector<geo::UtmPoint> ring) {
  const auto before = [](geo::UtmPoint a, geo::UtmPoint b) {
    return a.easting < b.easting || (a.easting == b.easting && a.northing < b.northing);
  };
  std::sort(ring.begin(), ring.end(), before);
  return static_cast<std::size_t>(std::unique(ring.begin(), ring.end()) - ring.begin());
}

/// On which side of the line from `a` to `b` the point lies: positive to the left.
long double Side(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint point) {
  const auto east = [&](geo::UtmPoint p) -> long double {
    return static_cast<long double>(p.easting) - static_cast<long double>(a.easting);
  };
  const auto north = [&](geo::UtmPoint p) -> long double {
    return static_cast<long double>(p.northing) - static_cast<long double>(a.northing);
  };
  return east(b) * north(point) - east(point) * north(b);
}

bool Parted(long double one, long double other) {
  return (one < 0 && other > 0) || (one > 0 && other < 0);
}

}  // namespace

LiteralPolygons::LiteralPolygons(const std::vector<LiteralRow>& rows) {
  for (const auto& [row, begins] : rows) {
    const bool startsPolygon = begins || starts.size() == 1;
    if (startsPolygon) {
      starts.push_back(LastOf(outline) + 1);
    } else if (row.left == leftEdge.back() && row.right == rightEdge.back()) {
      continue;
    }
    leftEdge.push_back(row.left);
    rightEdge.push_back(row.right);
    outline.push_back(row.centre);
    const int count = FirstPhase(outline, starts.back(), LastOf(outline));
    if (count > 0) starts.push_back(LastOf(outline));
  }
}

std::vector<LiteralPolygon> LiteralPolygons::Polygons() const {
  std::vector<LiteralPolygon> polygons;
  if (LastOf(leftEdge) < 4) return polygons;
  for (std::size_t k = 1; k < starts.size(); ++k) {
    const int start = starts[k];
    const int end = k + 1 < starts.size() ? starts[k + 1] - 1 : LastOf(leftEdge);
    LiteralPolygon polygon;
    for (int i = start; i <= end; ++i) {
      polygon.left.push_back(At(leftEdge, i));
      polygon.right.push_back(At(rightEdge, i));
      AddToRing(polygon.ring, At(leftEdge, i));
    }
    for (int i = end; i >= start; --i) AddToRing(polygon.ring, At(rightEdge, i));
    AddToRing(polygon.ring, polygon.ring.front());
    if (DistinctPoints(polygon.ring) >= 3) polygons.push_back(polygon);
  }
  return polygons;
}

std::vector<std::vector<geo::UtmPoint>> LiteralPolygons::Rings() const {
  std::vector<std::vector<geo::UtmPoint>> rings;
  for (const LiteralPolygon& polygon : Polygons()) rings.push_back(polygon.ring);
  return rings;
}

bool RingCrossesItself(const std::vector<geo::UtmPoint>& ring) {
  for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
    for (std::size_t j = i + 2; j + 1 < ring.size(); ++j) {
      const geo::UtmPoint a = ring[i];
      const geo::UtmPoint b = ring[i + 1];
      const geo::UtmPoint c = ring[j];
      const geo::UtmPoint d = ring[j + 1];
      if (Parted(Side(a, b, c), Side(a, b, d)) && Parted(Side(c, d, a), Side(c, d, b))) return true;
    }
  }
  return false;
}

}  // namespace kestrin::test
