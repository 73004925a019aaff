#include "export/net/netGround.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstdint>

#include "export/ground/geos.h"
#include "export/ground/gridAreas.h"
#include "export/net/seams.h"
#include "export/net/tile.h"

namespace kestrin::net {
namespace {

using ground::Geos;

constexpr double kPerMetre = 1000;
constexpr double kSmallestTile = 64;

/// The place of a tile in the plane, in tiles.
struct Place {
  std::int64_t column = 0;
  std::int64_t row = 0;

  friend auto operator<=>(const Place&, const Place&) = default;
};

/// That a run's box overlaps a tile.
struct Member {
  Place place;
  std::uint32_t run = 0;

  friend auto operator<=>(const Member&, const Member&) = default;
};

std::int64_t TileOf(double metres, double side) {
  return static_cast<std::int64_t>(std::floor(metres / side));
}

/// Of a run's box, all tiles.
template <class Take>
void ForEachTile(const geo::Box& box, double side, Take take) {
  const std::int64_t lastColumn = TileOf(box.xMax, side);
  const std::int64_t lastRow = TileOf(box.yMax, side);
  for (std::int64_t column = TileOf(box.xMin, side); column <= lastColumn; ++column) {
    for (std::int64_t row = TileOf(box.yMin, side); row <= lastRow; ++row) take(Place{column, row});
  }
}

/// The side of the tiles: doubled until runs lie in a few each, however long and wide.
double SideFor(const std::vector<Run>& runs) {
  double side = kSmallestTile;
  for (;; side *= 2) {
    double tiles = 0;
    for (const Run& run : runs) {
      tiles +=
          (2 + (run.box.xMax - run.box.xMin) / side) * (2 + (run.box.yMax - run.box.yMin) / side);
    }
    if (tiles <= 12 * static_cast<double>(runs.size())) return side;
  }
}

std::vector<Member> MembersOf(const std::vector<Run>& runs, double side) {
  std::vector<Member> members;
  for (std::uint32_t run = 0; run < runs.size(); ++run) {
    ForEachTile(runs[run].box, side, [&](Place place) { members.push_back({place, run}); });
  }
  std::ranges::sort(members);
  return members;
}

}  // namespace

std::vector<ground::Piece> NetGround(const Runs& runs, base::RunHost& host) {
  Geos geos;
  ground::GridAreas grid(geos, kPerMetre);
  const double side = SideFor(runs.All());
  const std::vector<Member> members = MembersOf(runs.All(), side);
  Seams seams(side);
  std::vector<std::uint32_t> indices;
  for (auto begin = members.begin(); begin != members.end();) {
    host.Yield();
    const Place place = begin->place;
    indices.clear();
    for (; begin != members.end() && begin->place == place; ++begin) indices.push_back(begin->run);
    const double x = static_cast<double>(place.column) * side;
    const double y = static_cast<double>(place.row) * side;
    const Tile tile(runs, indices, {x, y, x + side, y + side});
    for (const ground::Piece& piece : tile.Ground(geos, grid)) seams.Take(piece);
  }
  if (members.empty()) return {};
  return seams.Join(host);
}

}  // namespace kestrin::net
