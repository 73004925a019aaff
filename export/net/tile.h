#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "export/ground/gridAreas.h"
#include "export/net/cover.h"
#include "export/net/runs.h"
#include "geo/box.h"

namespace kestrin::net {

/// Finds the ground within one tile of the plane, a square whose corners lie on the grid.
///
/// The inside of a field is covered many times over: by the sections beside one another, by
/// passes that overlap, on the headlands. Joining all of that would take most of the time and
/// leave nothing. So the geometry library is handed only the runs that have to do with the
/// ground's outline: those with a stretch of their own outline that no core covers (Cover). What
/// they leave of the tile is either ground of the runs not handed over, whole, or none of it is.
class Tile {
 public:
  /// All must outlive it. `members` are the runs whose boxes overlap the tile, as indices
  /// into the list of all, ascending.
  Tile(const Runs& runs, std::span<const std::uint32_t> members, const geo::Box& box);

  /// The ground within the tile, its points on the grid.
  std::vector<ground::Piece> Ground(ground::Geos& geos, ground::GridAreas& grid) const;

 private:
  bool ShapesOutline(const Run& run) const;
  bool IsPassed(geo::UtmPoint point, const std::vector<bool>& shaping) const;
  bool IsPassedBy(geo::UtmPoint point, std::size_t member) const;
  std::vector<ground::Geos::Area> ShapingGround(ground::GridAreas& grid,
                                                const std::vector<bool>& shaping) const;
  void AddGround(ground::GridAreas& grid, Span span, std::uint32_t first, std::uint32_t last,
                 std::vector<ground::Geos::Area>& parts) const;
  ground::Geos::Area Square(ground::GridAreas& grid) const;

  const Runs& runs_;
  std::span<const std::uint32_t> members_;
  geo::Box box_;
  Cover cover_;
};

}  // namespace kestrin::net
