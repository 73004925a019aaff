#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "tools/sample/field.h"
#include "tools/sample/scenario.h"

namespace kestrin::sample {

/// Where the vehicle stands and looks: yaw in radians clockwise from north.
struct Pose {
  Place place;
  double yaw = 0;
};

/// A straight or an arc, driven at one speed.
struct Leg {
  Pose start;
  double metres = 0;
  double curvature = 0;  ///< 1 / radius in metres; positive turns right
  double speed = 0;      ///< metres per second; negative in reverse
  bool working = false;  ///< implement down
  bool turn = false;
  bool begins = false;  ///< a new stretch
  bool inner = false;   ///< the headland is left out
  /// What lies west of this easting was worked before.
  double workedUpTo = -std::numeric_limits<double>::infinity();

  Pose At(double driven) const;
};

/// A way over one field: its legs in order, and the ground where the implement
/// works when down (everywhere when empty).
struct Drive {
  std::vector<Leg> legs;
  Outline field;
  Outline inner;  ///< the field without its headland
};

/// Plans a drive that takes about `rows` epochs with an implement `width` metres wide.
/// Never without legs.
Drive PlanDrive(const Scenario& scenario, double width, std::int64_t rows);

}  // namespace kestrin::sample
