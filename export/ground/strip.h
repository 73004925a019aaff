#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "geo/points.h"

namespace kestrin::ground {

/// The two ends of the implement at one GPS row. UTM metres.
struct Boom {
  geo::UtmPoint left;
  geo::UtmPoint right;

  friend bool operator==(const Boom&, const Boom&) = default;
};

/// A triangle or quadrilateral, closed by its first point. Nothing crosses in it.
struct Patch {
  std::array<geo::UtmPoint, 5> points;
  std::size_t count = 0;
  double squareMetres = 0;  ///< positive when it was swept forward, negative when backward

  /// Lasts as long as the patch.
  std::span<const geo::UtmPoint> Line() const& { return std::span(points).first(count); }
  std::span<const geo::UtmPoint> Line() const&& = delete;
};

/// The ground between two rows: what the implement swept from one to the other.
///
/// Where it turned about a point of its own, its one side went forward and the other
/// backward: the two booms cross, and the ground is two triangles. So it is when the
/// ends' ways cross, after the heading has turned right round. Otherwise it is one
/// quadrilateral. Patches without area are left out.
///
/// Nothing fails. Booms must be finite.
class Strip {
 public:
  Strip(const Boom& from, const Boom& to);

  /// Last as long as the strip, which a loop's range does not prolong.
  std::span<const Patch> Patches() const& { return std::span(patches_).first(count_); }
  std::span<const Patch> Patches() const&& = delete;

 private:
  void Add(std::initializer_list<geo::UtmPoint> corners);

  std::array<Patch, 2> patches_;
  std::size_t count_ = 0;
};

}  // namespace kestrin::ground
