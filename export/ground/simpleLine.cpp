#include "export/ground/simpleLine.h"

#include <algorithm>
#include <cmath>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

geo::UtmPoint Flat(const geo::UtmPoint& point) { return point; }
geo::UtmPoint Flat(const geo::GeoPoint& point) { return {point.longitude, point.latitude}; }

/// How far points and segments may move against each other when they are projected: a
/// last digit is less than a thousandth of a millimetre, and a straight line becomes a
/// curve that rises above it by less than a ten-millionth of its length's square.
double ClearanceOf(std::span<const geo::UtmPoint> line) {
  double longest = 0;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    longest = std::max(longest, SquareDistance(line[i], line[i + 1]));
  }
  return 1e-6 + 1e-7 * longest;
}

double SquareDistanceTo(geo::UtmPoint point, geo::UtmPoint a, geo::UtmPoint b) {
  const double share = std::clamp(Dot(a, point, b) / SquareDistance(a, b), 0.0, 1.0);
  return SquareDistance(point, {a.easting + share * (b.easting - a.easting),
                                a.northing + share * (b.northing - a.northing)});
}

}  // namespace

Clearance SimpleLines::Of(std::span<const geo::UtmPoint> line) {
  if (!Test(line, ClearanceOf(line))) return Clearance::kNone;
  return tight_ ? Clearance::kTight : Clearance::kWide;
}

bool SimpleLines::IsSimple(std::span<const geo::UtmPoint> line) { return Test(line, 0); }
bool SimpleLines::IsSimple(std::span<const geo::GeoPoint> line) { return Test(line, 0); }

template <class Point>
bool SimpleLines::Test(std::span<const Point> line, double clearance) {
  clearance_ = clearance;
  tight_ = false;
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
  if (newest > 0 && !TurnIsClear(path_[newest - 1], from, to)) return false;
  if (closes && !TurnIsClear(from, to, path_[1])) return false;
  const auto meets = [&](std::size_t i) {
    if (closes && i == 0) return false;
    const geo::UtmPoint a = path_[i];
    const geo::UtmPoint b = path_[i + 1];
    if (geo::Box::Of(a, b).Overlaps(geo::Box::Of(from, to)) &&
        SideOf(from, to, a) * SideOf(from, to, b) <= 0 &&
        SideOf(a, b, from) * SideOf(a, b, to) <= 0) {
      return true;
    }
    Note(a, from, to);
    Note(b, from, to);
    Note(from, a, b);
    Note(to, a, b);
    return false;
  };
  return newest < 2 || !path_.AnyNearNewest(clearance_, meets);
}

bool SimpleLines::TurnIsClear(geo::UtmPoint from, geo::UtmPoint corner, geo::UtmPoint to) {
  if (Dot(corner, from, to) <= 0) return true;
  if (SideOf(from, corner, to) == 0) return false;
  Note(to, from, corner);
  Note(from, corner, to);
  return true;
}

void SimpleLines::Note(geo::UtmPoint point, geo::UtmPoint a, geo::UtmPoint b) {
  if (!tight_) tight_ = SquareDistanceTo(point, a, b) < clearance_ * clearance_;
}

}  // namespace kestrin::ground
