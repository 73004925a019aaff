#pragma once

#include <span>
#include <vector>

#include "export/ground/geos.h"
#include "export/ground/testedLine.h"
#include "geo/box.h"
#include "geo/points.h"

namespace kestrin::ground {

/// Areas whose points lie on a grid, where nothing fails for rounding. UTM metres.
///
/// Failure: GeometryError with the library's words.
class GridAreas {
 public:
  /// `perMetre` grid lines in a metre. The library must outlive it.
  GridAreas(Geos& geos, double perMetre) : geos_(geos), perMetre_(perMetre) {}

  /// The grid's point next to one.
  geo::UtmPoint OnGrid(geo::UtmPoint point) const;

  /// The area inside the closed line through points, one at least, moved to the grid, when the line
  /// keeps at least so clear of itself there; else null.
  Geos::Area Inside(std::span<const geo::UtmPoint> points, Clearance least);

  /// The union of areas, each of which must be valid. Where their lines cross are points
  /// beside the grid.
  Geos::Area Union(std::vector<Geos::Area> areas);

  /// What lies in a box of an area none of whose points lies on the box's outline; beside the
  /// grid there.
  Geos::Area Clipped(const Geos::Area& area, const geo::Box& box);

  /// What two areas have in common, on the grid.
  Geos::Area Common(const Geos::Area& area, const Geos::Area& other);

 private:
  Geos& geos_;
  double perMetre_;
  TestedLine tested_;
};

}  // namespace kestrin::ground
