#include "export/ground/simpleLine.h"

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

geo::UtmPoint Flat(const geo::UtmPoint& point) { return point; }
geo::UtmPoint Flat(const geo::GeoPoint& point) { return {point.longitude, point.latitude}; }

/// Whether the way back from the corner lies on the way to it.
bool FoldsBack(geo::UtmPoint from, geo::UtmPoint corner, geo::UtmPoint to) {
  if (SideOf(from, corner, to) != 0) return false;
  return (corner.easting - from.easting) * (to.easting - corner.easting) +
             (corner.northing - from.northing) * (to.northing - corner.northing) <
         0;
}

}  // namespace

bool SimpleLines::IsSimple(std::span<const geo::UtmPoint> line) { return Test(line); }
bool SimpleLines::IsSimple(std::span<const geo::GeoPoint> line) { return Test(line); }

template <class Point>
bool SimpleLines::Test(std::span<const Point> line) {
  if (line.size() < 4 || line.front() != line.back()) return false;
  path_.Restart();
  for (std::size_t i = 0; i < line.size(); ++i) {
    path_.Append(Flat(line[i]));
    if (!path_.Back().IsFinite()) return false;
    if (i > 0 && !NewestIsClear(i + 1 == line.size())) return false;
  }
  return true;
}

bool SimpleLines::NewestIsClear(bool closes) {
  const std::size_t newest = path_.Size() - 2;
  const geo::UtmPoint from = path_[newest];
  const geo::UtmPoint to = path_.Back();
  if (from == to) return false;
  if (newest > 0 && FoldsBack(path_[newest - 1], from, to)) return false;
  if (closes && FoldsBack(from, to, path_[1])) return false;
  return newest < 2 || !path_.AnyNearNewest([&](std::size_t i) {
    if (closes && i == 0) return false;
    // Their boxes overlap, so that neither having both ends on one side is enough.
    return SideOf(from, to, path_[i]) * SideOf(from, to, path_[i + 1]) <= 0 &&
           SideOf(path_[i], path_[i + 1], from) * SideOf(path_[i], path_[i + 1], to) <= 0;
  });
}

}  // namespace kestrin::ground
