#pragma once

#include <string>
#include <vector>

#include "export/coverage/swath.h"

namespace kestrin::test {

/// A way with sharp turns, row by row, driven forward unless it says otherwise.
struct SharpTurn {
  std::string name;
  std::vector<coverage::SwathRow> rows;
};

/// Drives a way: metres, and radians to the right.
class Driver {
 public:
  Driver(geo::UtmPoint from, double yaw, double width, double step)
      : at_(from), yaw_(yaw), width_(width), step_(step) {
    Row();
  }
  Driver& Straight(double metres);
  /// Along an arc; on the spot without a radius, in one jump.
  Driver& Turn(double angle, double radius);
  /// Backwards along an arc, the yaw turning by the angle.
  Driver& TurnBack(double angle, double radius);
  /// Outwards along a spiral to the right, the arms `spacing` apart.
  Driver& Spiral(double rounds, double spacing, double fromRadius);

  const std::vector<coverage::SwathRow>& Rows() const { return rows_; }

 private:
  /// Around a centre so far to the right of the vehicle.
  Driver& Arc(double angle, double toCentre);
  void Row() { rows_.push_back(coverage::SwathRow::Of(at_, yaw_, width_)); }

  geo::UtmPoint at_;
  double yaw_;
  double width_;
  double step_;
  std::vector<coverage::SwathRow> rows_;
};

/// Turns of 90 degrees, acute ones, half circles, spirals and three-point turns, whose
/// legs lie clear of each other, to either side, in large steps to the north and in small ones
/// askew, by an implement so many metres wide; the radius is `share` of half the
/// width, 0 on the spot.
std::vector<SharpTurn> SharpTurns(double width, double share);

}  // namespace kestrin::test
