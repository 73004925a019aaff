#pragma once

#include <span>
#include <vector>

#include "export/ground/geos.h"
#include "export/ground/strip.h"

namespace kestrin::ground {

/// What consecutive rows swept, strip by strip.
///
/// The line around the rows, up the left ends and down the right ones, winds once about a
/// place for each strip that swept it forward, and once the other way for each that swept
/// it backward. So all ground shows in it but what was swept backward as often as forward:
/// that is hidden. Forward is the way most of the ground was swept.
///
/// Nothing fails. Booms must be finite.
class Sweep {
 public:
  explicit Sweep(std::span<const Boom> booms);

  /// Ground swept forward, less what was swept backward; square metres.
  double Net() const { return net_; }
  /// Ground swept, each time it was.
  double Total() const { return total_; }
  /// The way of both ends together; metres.
  double Length() const { return length_; }
  /// Whether the vehicle went backward for the most part.
  bool IsBackward() const { return backward_; }

  /// The patches swept backward that may be hidden: those about which the line around the
  /// rows next to them does not wind, and all that are large.
  std::vector<Patch> Hidden() const;

 private:
  struct Placed {
    Patch patch;
    std::size_t row = 0;
  };
  bool IsHidden(const Placed& placed) const;

  std::span<const Boom> booms_;
  std::vector<Placed> against_;  // swept backward
  double net_ = 0;
  double total_ = 0;
  double length_ = 0;
  bool backward_ = false;
};

/// The ground of patches, whichever way they were swept.
double SquareMetresOf(std::span<const Patch> patches);

/// The closed line around rows, which may cross itself.
Line LineAround(std::span<const Boom> booms);

}  // namespace kestrin::ground
