#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "export/ground/gridAreas.h"
#include "export/net/runs.h"
#include "geo/box.h"

namespace kestrin::net {

/// The ground within a tile of strips that lie apart: to cut them at the tile's border is enough
/// then, and takes a tenth of the time that joining them takes. That is how passes with gaps in
/// between lie, and the lone ones on most tiles about a field.
///
/// `parts` is the ground of the runs with the indices `members`, ascending. Nothing where strips
/// may touch each other or themselves, or have points on the tile's border.
std::optional<std::vector<ground::Piece>> GroundOfApart(
    const Runs& runs, std::span<const std::uint32_t> members, const geo::Box& tile,
    const std::vector<ground::Geos::Area>& parts, ground::Geos& geos, ground::GridAreas& grid);

}  // namespace kestrin::net
