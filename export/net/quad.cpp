#include "export/net/quad.h"

#include <array>
#include <cmath>

#include "export/ground/planeGeometry.h"

namespace kestrin::net {

using ground::Cross;
using ground::SignedArea;

int Quad::Direction() const {
  const std::array turns{
      Cross(from_.left, from_.right, to_.right), Cross(from_.right, to_.right, to_.left),
      Cross(to_.right, to_.left, from_.left), Cross(to_.left, from_.left, from_.right)};
  bool left = true;
  bool right = true;
  double sum = 0;
  for (const double turn : turns) {
    left = left && turn >= 0;
    right = right && turn <= 0;
    sum += turn;
  }
  if (sum == 0) return 0;
  return left ? 1 : right ? -1 : 0;
}

double Quad::SquareMetres() const {
  if (Direction() != 0) {
    return std::fabs(SignedArea(std::array{from_.left, from_.right, to_.right, to_.left}));
  }
  double sum = 0;
  const ground::Strip strip(from_, to_);
  for (const ground::Patch& patch : strip.Patches()) sum += std::fabs(patch.squareMetres);
  return sum;
}

bool Quad::Holds(geo::UtmPoint point) const {
  const std::array corners{from_.left, from_.right, to_.right, to_.left};
  bool inside = false;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const geo::UtmPoint a = corners[i];
    const geo::UtmPoint b = corners[(i + 1) % corners.size()];
    const bool above = a.northing > point.northing;
    if (above == (b.northing > point.northing)) continue;
    // The side crosses the line to the east of the point.
    if ((Cross(a, b, point) < 0) == above) inside = !inside;
  }
  return inside;
}

}  // namespace kestrin::net
