#include "export/polyOutline.h"

#include <cmath>

namespace kestrin {
namespace {

bool MeetsItself(const SegmentTrail& centres) {
  const std::size_t count = centres.Size();
  if (count < 4) return false;
  const UtmPoint a = centres[count - 2];
  const UtmPoint b = centres[count - 1];
  // A segment of no length has no line, and none meets it.
  if (a == b) return false;
  return centres.AnyNear(Extent::Of(a, b), count - 3, [&](std::size_t i) {
    return SegmentsMeet(a, b, centres[i], centres[i + 1]);
  });
}

}  // namespace

SwathRow SwathRow::Of(UtmPoint centre, double yaw, double width) {
  const double half = width / 2;
  const double east = std::cos(yaw) * half;
  const double south = std::sin(yaw) * half;
  return {centre,
          {centre.easting - east, centre.northing + south},
          {centre.easting + east, centre.northing - south},
          yaw};
}

void Outline::Restart() {
  centres.Restart();
  leftEdge.Restart();
  rightEdge.Restart();
}

void Outline::Append(const SwathRow& row) {
  centres.Append(row.centre);
  leftEdge.Append(row.left);
  rightEdge.Append(row.right);
}

void Outline::DropNewest() {
  centres.Truncate(centres.Size() - 1);
  leftEdge.Truncate(leftEdge.Size() - 1);
  rightEdge.Truncate(rightEdge.Size() - 1);
}

std::size_t CleanOutline(Outline& outline) {
  return MeetsItself(outline.centres) ? outline.centres.Size() : 0;
}

}  // namespace kestrin
