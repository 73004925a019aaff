#include "export/ground/gridAreas.h"

#include <algorithm>
#include <cmath>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {

geo::UtmPoint GridAreas::OnGrid(geo::UtmPoint point) const {
  return {std::round(point.easting * perMetre_) / perMetre_,
          std::round(point.northing * perMetre_) / perMetre_};
}

Geos::Area GridAreas::Inside(std::span<const geo::UtmPoint> points, Clearance least) {
  double longest = SquareDistance(points.back(), points.front());
  for (std::size_t i = 1; i < points.size(); ++i) {
    longest = std::max(longest, SquareDistance(points[i - 1], points[i]));
  }
  tested_.Restart(points.size() + 1, std::sqrt(longest));
  // Closing draws the last way.
  const geo::UtmPoint first = OnGrid(points.front());
  while (points.size() > 1 && OnGrid(points.back()) == first)
    points = points.first(points.size() - 1);
  for (const geo::UtmPoint& point : points) tested_.Add(OnGrid(point));
  tested_.Close();
  return tested_.Kept() < least ? Geos::Area() : geos_.Inside(tested_.Points());
}

Geos::Area GridAreas::Union(std::vector<Geos::Area> areas) {
  const Geos::Area all = geos_.Collection(std::move(areas));
  if (GEOSGeometry* both = GEOSUnaryUnion_r(geos_.Handle(), all.get())) return geos_.Own(both);
  return geos_.UnionOnGrid(all, 1 / perMetre_);
}

Geos::Area GridAreas::Clipped(const Geos::Area& area, const geo::Box& box) {
  return geos_.Own(
      GEOSClipByRect_r(geos_.Handle(), area.get(), box.xMin, box.yMin, box.xMax, box.yMax));
}

Geos::Area GridAreas::Common(const Geos::Area& area, const Geos::Area& other) {
  return geos_.Own(GEOSIntersectionPrec_r(geos_.Handle(), area.get(), other.get(), 1 / perMetre_));
}

}  // namespace kestrin::ground
