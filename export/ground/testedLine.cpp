#include "export/ground/testedLine.h"

#include <algorithm>
#include <cmath>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

double SquareDistanceTo(geo::UtmPoint point, geo::UtmPoint a, geo::UtmPoint b) {
  const double share = std::clamp(Dot(a, point, b) / SquareDistance(a, b), 0.0, 1.0);
  return SquareDistance(point, {a.easting + share * (b.easting - a.easting),
                                a.northing + share * (b.northing - a.northing)});
}

}  // namespace

void TestedLine::Restart(std::size_t points, double longest) {
  path_.Restart();
  path_.Reserve(points);
  kept_ = Clearance::kWide;
  // A last digit is less than a thousandth of a millimetre, and a straight line becomes a
  // curve that rises above it by less than a ten-millionth of its length's square.
  distance_ = longest > 0 ? 1e-6 + 1e-7 * longest * longest : 0;
}

void TestedLine::Add(geo::UtmPoint point) {
  if (path_.Size() == 0 || point != path_.Back()) Draw(point, false);
}

void TestedLine::Close() {
  if (path_.Size() > 1) Draw(path_[0], true);
  if (path_.Size() < 4) kept_ = Clearance::kNone;
}

void TestedLine::Draw(geo::UtmPoint point, bool closes) {
  path_.Append(point);
  if (kept_ == Clearance::kNone) return;
  if (!point.IsFinite() || (path_.Size() > 1 && !NewestIsClear(closes))) kept_ = Clearance::kNone;
}

bool TestedLine::NewestIsClear(bool closes) {
  const std::size_t newest = path_.Size() - 2;
  const geo::UtmPoint from = path_[newest];
  const geo::UtmPoint to = path_.Back();
  if (newest > 0 && !TurnIsClear(path_[newest - 1], from, to)) return false;
  if (closes && !TurnIsClear(from, to, path_[1])) return false;
  return newest < 2 || !path_.AnyNearNewest(distance_, [&](std::size_t i) {
    return !(closes && i == 0) && !IsClearOf(i);
  });
}

bool TestedLine::IsClearOf(std::size_t segment) {
  const geo::UtmPoint from = path_[path_.Size() - 2];
  const geo::UtmPoint to = path_.Back();
  const geo::UtmPoint a = path_[segment];
  const geo::UtmPoint b = path_[segment + 1];
  // Most lie far to one side, which needs no exact answer.
  const double toA = Cross(from, to, a);
  const double toB = Cross(from, to, b);
  const double square = 1.0001 * distance_ * distance_ * SquareDistance(from, to);
  if (distance_ > 0 && (toA > 0) == (toB > 0) && toA * toA > square && toB * toB > square) {
    return true;
  }
  if (geo::Box::Of(a, b).Overlaps(geo::Box::Of(from, to)) &&
      SideOf(from, to, a) * SideOf(from, to, b) <= 0 &&
      SideOf(a, b, from) * SideOf(a, b, to) <= 0) {
    return false;
  }
  Note(a, from, to);
  Note(b, from, to);
  Note(from, a, b);
  Note(to, a, b);
  return true;
}

bool TestedLine::TurnIsClear(geo::UtmPoint from, geo::UtmPoint corner, geo::UtmPoint to) {
  if (Dot(corner, from, to) <= 0) return true;
  if (SideOf(from, corner, to) == 0) return false;
  Note(to, from, corner);
  Note(from, corner, to);
  return true;
}

void TestedLine::Note(geo::UtmPoint point, geo::UtmPoint a, geo::UtmPoint b) {
  if (SquareDistanceTo(point, a, b) < distance_ * distance_) kept_ = Clearance::kTight;
}

}  // namespace kestrin::ground
