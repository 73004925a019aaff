#include "export/net/apart.h"

#include <algorithm>

#include "export/ground/planeGeometry.h"
#include "export/net/hull.h"

namespace kestrin::net {
namespace {

using ground::Geos;

/// To compare each with each of many would take longer than to join them.
constexpr std::size_t kMost = 256;

/// Whether a run goes on from the one before it in the list.
bool GoesOn(const Runs& runs, std::span<const std::uint32_t> members, std::size_t i) {
  return i > 0 && members[i] == members[i - 1] + 1 && runs.All()[members[i]].goesOnBefore;
}

/// Whether runs that do not go on from one another are clear of each other.
bool AreApart(const Runs& runs, std::span<const std::uint32_t> members) {
  if (members.size() > kMost) return false;
  std::vector<Hull> hulls;
  hulls.reserve(members.size());
  for (std::size_t i = 0; i < members.size(); ++i) {
    const Run& run = runs.All()[members[i]];
    hulls.emplace_back(runs, run);
    const std::size_t others = GoesOn(runs, members, i) ? i - 1 : i;
    for (std::size_t j = 0; j < others; ++j) {
      if (!run.box.Overlaps(runs.All()[members[j]].box)) continue;
      if (!hulls[i].IsApartFrom(hulls[j])) return false;
    }
  }
  return true;
}

/// Whether each strip is one part: it is more where it comes close to itself.
bool AreWhole(const Runs& runs, std::span<const std::uint32_t> members, std::size_t parts) {
  std::size_t strips = 0;
  for (std::size_t i = 0; i < members.size(); ++i) strips += GoesOn(runs, members, i) ? 0 : 1;
  return strips == parts;
}

bool IsClearOfBorder(const Geos::Area& part, const geo::Box& tile, Geos& geos) {
  return std::ranges::none_of(geos.Pieces(part).front().shell, [&](geo::UtmPoint point) {
    return point.easting == tile.xMin || point.easting == tile.xMax ||
           point.northing == tile.yMin || point.northing == tile.yMax;
  });
}

/// A closed line's points on the grid, without equal neighbours.
ground::Line OnGrid(const ground::Line& points, const ground::GridAreas& grid) {
  ground::Line line;
  line.reserve(points.size());
  for (const geo::UtmPoint& point : points) {
    const geo::UtmPoint on = grid.OnGrid(point);
    if (line.empty() || on != line.back()) line.push_back(on);
  }
  return line;
}

void AddClipped(const Geos::Area& part, const geo::Box& tile, Geos& geos, ground::GridAreas& grid,
                std::vector<ground::Piece>& pieces) {
  for (ground::Piece& piece : geos.Pieces(grid.Clipped(part, tile))) {
    piece.shell = OnGrid(piece.shell, grid);
    if (piece.shell.size() >= 4 && ground::SignedArea(piece.shell) < 0) pieces.push_back(piece);
  }
}

}  // namespace

std::optional<std::vector<ground::Piece>> GroundOfApart(const Runs& runs,
                                                        std::span<const std::uint32_t> members,
                                                        const geo::Box& tile,
                                                        const std::vector<Geos::Area>& parts,
                                                        Geos& geos, ground::GridAreas& grid) {
  if (!AreWhole(runs, members, parts.size()) || !AreApart(runs, members)) return std::nullopt;
  std::vector<ground::Piece> pieces;
  for (const Geos::Area& part : parts) {
    if (!IsClearOfBorder(part, tile, geos)) return std::nullopt;
    AddClipped(part, tile, geos, grid, pieces);
  }
  return pieces;
}

}  // namespace kestrin::net
