#include "export/net/tile.h"

#include <algorithm>
#include <array>
#include <span>

#include "export/net/apart.h"
#include "export/net/quad.h"

namespace kestrin::net {
namespace {

using ground::Geos;
using ground::GridAreas;

/// Longer outlines are seldom simple, and no cheaper to join.
constexpr std::uint32_t kMostStepsTogether = 256;

}  // namespace

Tile::Tile(const Runs& runs, std::span<const std::uint32_t> members, const geo::Box& box)
    : runs_(runs), members_(members), box_(box), cover_(runs, members, box) {}

bool Tile::ShapesOutline(const Run& run) const {
  Boom before = runs_.At(run.first, run.span);
  if (!run.goesOnBefore && !cover_.Hides(before.left, before.right)) return true;
  for (std::uint32_t step = run.first + 1; step <= run.last; ++step) {
    const Boom boom = runs_.At(step, run.span);
    if (!cover_.Hides(before.left, boom.left) || !cover_.Hides(before.right, boom.right))
      return true;
    before = boom;
  }
  return !run.goesOnAfter && !cover_.Hides(before.left, before.right);
}

void Tile::AddGround(GridAreas& grid, Span span, std::uint32_t first, std::uint32_t last,
                     std::vector<Geos::Area>& parts) const {
  const auto add = [&](std::span<const geo::UtmPoint> corners, ground::Clearance least) {
    Geos::Area area = grid.Inside(corners, least);
    if (!area) return false;
    parts.push_back(std::move(area));
    return true;
  };
  std::vector<geo::UtmPoint> outline;
  for (std::uint32_t step = first; step <= last; ++step) {
    outline.push_back(runs_.At(step, span).left);
  }
  for (std::uint32_t step = last + 1; step-- > first;) {
    outline.push_back(runs_.At(step, span).right);
  }
  if (add(outline, ground::Clearance::kWide)) return;
  if (last - first > 1) {
    const std::uint32_t middle = (first + last) / 2;
    AddGround(grid, span, first, middle, parts);
    AddGround(grid, span, middle, last, parts);
    return;
  }
  const ground::Strip strip(runs_.At(first, span), runs_.At(last, span));
  for (const ground::Patch& patch : strip.Patches()) {
    add(patch.Line(), ground::Clearance::kTight);
  }
}

Geos::Area Tile::Square(GridAreas& grid) const {
  return grid.Inside(std::array<geo::UtmPoint, 4>{{{box_.xMin, box_.yMin},
                                                   {box_.xMin, box_.yMax},
                                                   {box_.xMax, box_.yMax},
                                                   {box_.xMax, box_.yMin}}},
                     ground::Clearance::kTight);
}

bool Tile::IsPassedBy(geo::UtmPoint point, std::size_t member) const {
  const Run& run = runs_.All()[members_[member]];
  if (!run.box.Holds(point)) return false;
  for (std::uint32_t step = run.first; step < run.last; ++step) {
    if (Quad(runs_.At(step, run.span), runs_.At(step + 1, run.span)).Holds(point)) return true;
  }
  return false;
}

std::vector<ground::Piece> Tile::Ground(Geos& geos, GridAreas& grid) const {
  std::vector<bool> shaping(members_.size());
  for (std::size_t i = 0; i < members_.size(); ++i) {
    shaping[i] = ShapesOutline(runs_.All()[members_[i]]);
  }
  std::vector<Geos::Area> parts = ShapingGround(grid, shaping);
  if (std::ranges::find(shaping, false) == shaping.end()) {
    const auto apart = GroundOfApart(runs_, members_, box_, parts, geos, grid);
    if (apart) return *apart;
  }
  const Geos::Area square = Square(grid);
  // What the shaping runs leave of the tile ...
  const Geos::Area open = grid.Less(square, grid.Union(std::move(parts)));
  std::vector<Geos::Area> bare;
  for (Geos::Area& face : grid.Pieces(open)) {
    if (!IsPassed(grid.PointWithin(face), shaping)) bare.push_back(std::move(face));
  }
  // ... and no other run passes is not ground.
  return geos.Pieces(grid.Less(square, geos.Collection(std::move(bare))));
}

bool Tile::IsPassed(geo::UtmPoint point, const std::vector<bool>& shaping) const {
  for (std::size_t i = 0; i < members_.size(); ++i) {
    if (!shaping[i] && IsPassedBy(point, i)) return true;
  }
  return false;
}

std::vector<Geos::Area> Tile::ShapingGround(GridAreas& grid,
                                            const std::vector<bool>& shaping) const {
  std::vector<Geos::Area> parts;
  for (std::size_t i = 0; i < members_.size();) {
    const Run& run = runs_.All()[members_[i]];
    std::uint32_t last = run.last;
    if (!shaping[i++]) continue;
    // Those that go on from one another are laid as one.
    for (; i < members_.size() && shaping[i] && members_[i] == members_[i - 1] + 1; ++i) {
      const Run& next = runs_.All()[members_[i]];
      if (!next.goesOnBefore || next.last - run.first > kMostStepsTogether) break;
      last = next.last;
    }
    AddGround(grid, run.span, run.first, last, parts);
  }
  return parts;
}

}  // namespace kestrin::net
