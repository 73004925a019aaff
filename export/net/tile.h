#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "export/ground/gridAreas.h"
#include "export/net/track.h"
#include "geo/box.h"

namespace kestrin::net {

/// What a span works on the way from one row to a later one. All of it goes forward (1) or back
/// (-1), and so the line around it winds about all of its ground; or it is a single step, of
/// which one side goes forward and one back (0).
struct Stretch {
  Span span;
  std::uint32_t first = 0;
  std::uint32_t last = 0;
  int direction = 0;
};

/// Finds the ground within one tile of the plane, a square whose corners lie on the grid.
///
/// Most stretches cross nothing else: passes that leave a gap in between, and the lone ones about
/// a field. To cut them at the tile's border is enough, and takes a fifth of the time that uniting
/// them takes, so only what comes close to something else is united.
///
/// Where parts are many they are united ahead of the rest, and what the ground so far covers is
/// left out: of a machine that stands, of which a receiver's noise makes a step a row, all but a
/// few.
class Tile {
 public:
  /// All must outlive it.
  Tile(const Track& track, const geo::Box& box, ground::Geos& geos, ground::GridAreas& grid)
      : track_(track), box_(box), geos_(geos), grid_(grid) {}

  /// The ground of the stretches within the tile, its points on the grid.
  std::vector<ground::Piece> Ground(std::span<const Stretch> stretches);

 private:
  /// To compare each with each of more would take longer than to unite them.
  static constexpr std::size_t kMany = 256;

  /// A simple figure within the tile.
  struct Part {
    ground::Geos::Area area;
    geo::Box box;
    bool isClose = false;  // to another, which it may touch or overlap
  };

  void Lay(Span span, std::uint32_t first, std::uint32_t last);
  void LayStep(const Boom& from, const Boom& to);
  void Clip(const ground::Geos::Area& area);
  void Unite();
  void FindClose();
  ground::Geos::Area Square() const;
  geo::UtmPoint BesideBorder(geo::UtmPoint point) const;
  ground::Line BesideBorder(std::span<const geo::UtmPoint> points) const;

  const Track& track_;
  geo::Box box_;
  ground::Geos& geos_;
  ground::GridAreas& grid_;
  std::vector<Part> parts_;
  ground::Geos::Area united_;  // of parts that were; null before
  ground::Geos::Prepared cover_;
  std::size_t mostParts_ = kMany;
};

}  // namespace kestrin::net
