#include "export/net/netGround.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <utility>

#include "export/ground/gridAreas.h"
#include "export/net/seams.h"
#include "export/net/tile.h"

namespace kestrin::net {
namespace {

constexpr double kPerMetre = 1000;
constexpr double kSmallestTile = 64;

/// Longer outlines are seldom simple, and no cheaper to unite.
constexpr std::uint32_t kMostSteps = 256;

/// The column and the row of a tile.
using Place = std::pair<std::int64_t, std::int64_t>;
using Tiles = std::map<Place, std::vector<Stretch>>;

/// What the ground of all steps comes to.
struct Sums {
  double steps = 0;
  double sides = 0;  // two each, of the box around a step
  double boxes = 0;  // square metres of them
  double swept = 0;
};

geo::Box BoxOf(const Boom& from, const Boom& to) {
  geo::Box box;
  for (const geo::UtmPoint end : {from.left, from.right, to.left, to.right}) box.Widen(end);
  return box;
}

Sums SumsOf(const Track& track, base::RunHost& host) {
  Sums sums;
  track.ForEachStep(host, [&](std::uint32_t row, Span span) {
    const Boom from = track.At(row - 1, span);
    const Boom to = track.At(row, span);
    const geo::Box box = BoxOf(from, to);
    sums.steps += 1;
    sums.sides += box.xMax - box.xMin + box.yMax - box.yMin;
    sums.boxes += (box.xMax - box.xMin) * (box.yMax - box.yMin);
    const ground::Strip strip(from, to);
    for (const ground::Patch& patch : strip.Patches()) sums.swept += std::fabs(patch.squareMetres);
  });
  return sums;
}

/// The side of the tiles: doubled until steps lie in a few each, however long and wide.
double SideFor(const Sums& sums) {
  double side = kSmallestTile;
  while (sums.sides / side + sums.boxes / (side * side) > 8 * sums.steps) side *= 2;
  return side;
}

int DirectionOf(const ground::Strip& strip) {
  if (strip.Patches().size() != 1) return 0;
  return strip.Patches().front().squareMetres > 0 ? 1 : -1;
}

bool GoesOn(const Stretch& stretch, const Stretch& step) {
  return step.direction != 0 && step.direction == stretch.direction && step.span == stretch.span &&
         step.first == stretch.last && step.last - stretch.first <= kMostSteps;
}

/// Adds a step to what a tile has.
void Add(const Stretch& step, std::vector<Stretch>& stretches) {
  // Those that may go on are among the newest, as many as there are spans.
  std::size_t left = Setup::kWhole;
  for (auto at = stretches.rbegin(); at != stretches.rend() && left > 0; ++at, --left) {
    if (!GoesOn(*at, step)) continue;
    at->last = step.last;
    return;
  }
  stretches.push_back(step);
}

Tiles TilesOf(const Track& track, double side, base::RunHost& host) {
  const auto number = [&](double metres) {
    return static_cast<std::int64_t>(std::floor(metres / side));
  };
  Tiles tiles;
  track.ForEachStep(host, [&](std::uint32_t row, Span span) {
    const Boom from = track.At(row - 1, span);
    const Boom to = track.At(row, span);
    const ground::Strip strip(from, to);
    if (strip.Patches().empty()) return;
    const Stretch step{span, row - 1, row, DirectionOf(strip)};
    const geo::Box box = BoxOf(from, to);
    for (std::int64_t column = number(box.xMin); column <= number(box.xMax); ++column) {
      for (std::int64_t line = number(box.yMin); line <= number(box.yMax); ++line) {
        Add(step, tiles[{column, line}]);
      }
    }
  });
  return tiles;
}

}  // namespace

Ground NetGround(const Track& track, base::RunHost& host) {
  ground::Geos geos;
  ground::GridAreas grid(geos, kPerMetre);
  const Sums sums = SumsOf(track, host);
  const double side = SideFor(sums);
  Seams seams(geos, side);
  for (const auto& [place, stretches] : TilesOf(track, side, host)) {
    host.Yield();
    const double x = static_cast<double>(place.first) * side;
    const double y = static_cast<double>(place.second) * side;
    Tile tile(track, {x, y, x + side, y + side}, geos, grid);
    seams.Take(tile.Ground(stretches));
  }
  return {seams.Join(), sums.swept};
}

}  // namespace kestrin::net
