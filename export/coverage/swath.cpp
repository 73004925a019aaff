#include "export/coverage/swath.h"

#include <cmath>
#include <numbers>

#include "geo/heading.h"

namespace kestrin::coverage {
namespace {

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

void Swath::Begin(const SwathRow& row) {
  outline.Restart();
  leftEdge.Restart(row.centre);
  rightEdge.Restart(row.centre);
  turned_ = 0;
  Add(row, {});
}

void Swath::Append(const SwathRow& row) {
  turned_ += TurnBetween(newest_.yaw, row.yaw);
  Add(row, MotionTo(row));
}

void Swath::Add(const SwathRow& row, const SwathMotion& motion) {
  outline.Append(row.centre);
  leftEdge.Append(row.left, motion);
  rightEdge.Append(row.right, motion);
  newest_ = row;
}

SwathMotion Swath::MotionTo(const SwathRow& row) const {
  // Square to both rows' booms together.
  const double east =
      row.right.easting - row.left.easting + newest_.right.easting - newest_.left.easting;
  const double north =
      row.right.northing - row.left.northing + newest_.right.northing - newest_.left.northing;
  return {turned_, -north, east};
}

void Swath::DropNewest() {
  outline.Truncate(outline.Size() - 1);
  leftEdge.DropNewest();
  rightEdge.DropNewest();
}

}  // namespace kestrin::coverage
