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

/// The only phase that decides where a polygon is cut.
int FirstPhase(const std::vector<geo::UtmPoint>& points, int startIndex, int endIndex) {
  if (!(endIndex - startIndex > 2)) return 0;
  const geo::UtmPoint a = At(points, endIndex - 1);
  const geo::UtmPoint b = At(points, endIndex);
  for (int i = startIndex; i <= endIndex - 3; ++i) {
    const geo::UtmPoint c = At(points, i);
    const geo::UtmPoint d = At(points, i + 1);
    double x = 0;
    double y = 0;
    coverage::FindLineIntersection(a.easting, a.northing, b.easting, b.northing, c.easting,
                                   c.northing, d.easting, d.northing, x, y);
    if (x < 1E+38 && Within(x, a.easting, b.easting) && Within(x, c.easting, d.easting) &&
        Within(y, a.northing, b.northing) && Within(y, c.northing, d.northing)) {
      return endIndex;
    }
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

std::vector<std::vector<geo::UtmPoint>> LiteralPolygons::Rings() const {
  std::vector<std::vector<geo::UtmPoint>> rings;
  if (LastOf(leftEdge) < 4) return rings;
  for (std::size_t k = 1; k < starts.size(); ++k) {
    const int start = starts[k];
    const int end = k + 1 < starts.size() ? starts[k + 1] - 1 : LastOf(leftEdge);
    std::vector<geo::UtmPoint> ring;
    for (int i = start; i <= end; ++i) AddToRing(ring, At(leftEdge, i));
    for (int i = end; i >= start; --i) AddToRing(ring, At(rightEdge, i));
    AddToRing(ring, ring.front());
    if (DistinctPoints(ring) >= 3) rings.push_back(ring);
  }
  return rings;
}

bool RingCrossesItself(const std::vector<geo::UtmPoint>& ring) {
  for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
    for (std::size_t j = i + 2; j + 1 < ring.size(); ++j) {
      if (coverage::SegmentsCross(ring[i], ring[i + 1], ring[j], ring[j + 1])) return true;
    }
  }
  return false;
}

}  // namespace kestrin::test
