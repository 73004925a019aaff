#include "export/ground/testedLine.h"

#include <algorithm>
#include <cmath>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

/// How far segments must be from each other that are no longer than the root of a square:
/// a last digit is less than a ten-thousandth of a millimetre, and a straight line becomes
/// a curve that rises above it by less than a ten-millionth of its length's square.
double DistanceFor(double squareLength) { return 1e-7 + 1e-7 * squareLength; }

double SquareDistanceTo(geo::UtmPoint point, geo::UtmPoint a, geo::UtmPoint b) {
  const double share = std::clamp(Dot(a, point, b) / SquareDistance(a, b), 0.0, 1.0);
  return SquareDistance(point, {a.easting + share * (b.easting - a.easting),
                                a.northing + share * (b.northing - a.northing)});
}

bool IsNear(geo::UtmPoint point, geo::UtmPoint a, geo::UtmPoint b, double distance) {
  return SquareDistanceTo(point, a, b) < distance * distance;
}

/// Whether two segments have a point in common.
bool Touch(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d) {
  return geo::Box::Of(a, b).Overlaps(geo::Box::Of(c, d)) &&
         SideOf(c, d, a) * SideOf(c, d, b) <= 0 && SideOf(a, b, c) * SideOf(a, b, d) <= 0;
}

}  // namespace

void TestedLine::Restart(std::size_t points, double longest) {
  path_.Restart();
  path_.Reserve(points);
  kept_ = longest > 0 ? Clearance::kWide : Clearance::kTight;
  farthest_ = longest > 0 ? DistanceFor(longest * longest) : 0;
  tight_.clear();
  knowsTight_ = longest > 0;
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
  return newest < 2 || !path_.AnyNearNewest(farthest_, [&](std::size_t i) {
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
  const double length = SquareDistance(from, to);
  const double distance = DistanceFor(std::max(length, SquareDistance(a, b)));
  const double square = 1.0001 * distance * distance * length;
  if ((toA > 0) == (toB > 0) && toA * toA > square && toB * toB > square) return true;
  if (Touch(a, b, from, to)) return false;
  if (!knowsTight_) return true;
  if (IsNear(a, from, to, distance) || IsNear(b, from, to, distance) ||
      IsNear(from, a, b, distance) || IsNear(to, a, b, distance)) {
    NoteTight({a, b, from, to});
  }
  return true;
}

bool TestedLine::TurnIsClear(geo::UtmPoint from, geo::UtmPoint corner, geo::UtmPoint to) {
  if (Dot(corner, from, to) <= 0) return true;
  if (SideOf(from, corner, to) == 0) return false;
  if (!knowsTight_) return true;
  const double distance =
      DistanceFor(std::max(SquareDistance(from, corner), SquareDistance(corner, to)));
  if (IsNear(to, from, corner, distance) || IsNear(from, corner, to, distance)) {
    NoteTight({from, corner, corner, to});
  }
  return true;
}

void TestedLine::NoteTight(const Pair& pair) {
  kept_ = Clearance::kTight;
  knowsTight_ = tight_.size() < kMostTight;
  if (knowsTight_) tight_.push_back(pair);
}

bool TestedLine::AreClear(const Pair& pair, bool isTurn) {
  const auto& [a, b, c, d] = pair;
  return isTurn ? SideOf(a, b, d) != 0 : !Touch(a, b, c, d);
}

}  // namespace kestrin::ground
