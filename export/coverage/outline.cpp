#include "export/coverage/outline.h"

#include <cmath>
#include <numbers>

#include "geo/heading.h"

namespace kestrin::coverage {
namespace {

bool MeetsItself(IndexedPath& centres) {
  const std::size_t count = centres.Size();
  if (count < 4) return false;
  const geo::UtmPoint a = centres[count - 2];
  const geo::UtmPoint b = centres[count - 1];
  // A segment of no length has no line, and none meets it.
  if (a == b) return false;
  return centres.AnyNearNewest(
      [&](std::size_t i) { return SegmentsMeet(a, b, centres[i], centres[i + 1]); });
}

/// The smaller way round from one yaw to another; none when either is missing.
double TurnBetween(double from, double to) {
  const double turn = to - from;
  if (std::fabs(turn) <= std::numbers::pi) return turn;
  return std::isfinite(turn) ? std::remainder(turn, 2 * std::numbers::pi) : 0;
}

}  // namespace

SwathRow SwathRow::Of(geo::UtmPoint centre, double yaw, double width) {
  const geo::Heading heading(yaw);
  return {centre, heading.LeftOf(centre, width / 2), heading.RightOf(centre, width / 2), yaw};
}

void Outline::Begin(const SwathRow& row) {
  centres.Restart();
  leftEdge.Restart(row.centre);
  rightEdge.Restart(row.centre);
  turned_ = 0;
  Add(row, {});
}

void Outline::Append(const SwathRow& row) {
  turned_ += TurnBetween(newest_.yaw, row.yaw);
  Add(row, MotionTo(row));
}

void Outline::Add(const SwathRow& row, const SwathMotion& motion) {
  centres.Append(row.centre);
  leftEdge.Append(row.left, motion);
  rightEdge.Append(row.right, motion);
  newest_ = row;
}

SwathMotion Outline::MotionTo(const SwathRow& row) const {
  // Square to both rows' booms together.
  const double east =
      row.right.easting - row.left.easting + newest_.right.easting - newest_.left.easting;
  const double north =
      row.right.northing - row.left.northing + newest_.right.northing - newest_.left.northing;
  return {turned_, -north, east};
}

void Outline::DropNewest() {
  centres.Truncate(centres.Size() - 1);
  leftEdge.DropNewest();
  rightEdge.DropNewest();
}

std::size_t CleanOutline(Outline& outline) {
  if (MeetsItself(outline.centres)) return outline.centres.Size();
  outline.leftEdge.RemoveLoops(outline.rightEdge);
  outline.rightEdge.RemoveLoops(outline.leftEdge);
  return 0;
}

}  // namespace kestrin::coverage
