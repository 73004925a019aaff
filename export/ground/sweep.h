#pragma once

#include <span>
#include <vector>

#include "base/loopYield.h"
#include "export/ground/geos.h"
#include "export/ground/strip.h"

namespace kestrin::ground {

/// What consecutive rows swept, strip by strip.
///
/// The line around the rows, up the left ends and down the right ones, winds once about a
/// place for each strip that swept it forward, and once the other way for each that swept
/// it backward. So all ground shows in it but what was swept backward as often as forward:
/// that is hidden. Forward is the way most of the ground was swept.
struct Sweep {
  /// Nothing fails but what `yield` throws. Booms must be finite.
  Sweep(std::span<const Boom> booms, base::LoopYield& yield);

  double net = 0;           ///< ground swept forward, less what was swept backward; square metres
  double total = 0;         ///< ground swept, each time it was
  double length = 0;        ///< the way of both ends together; metres
  bool isBackward = false;  ///< whether the vehicle went backward for the most part

  /// The patches swept backward that may be hidden: those about which the line around the
  /// rows next to them does not wind, and all that are large.
  std::vector<Patch> hidden;
  double hiddenGround = 0;  ///< of all of these; square metres
};

/// The closed line around rows, which may cross itself.
Line LineAround(std::span<const Boom> booms);

}  // namespace kestrin::ground
