#include "export/ground/sweep.h"

#include <algorithm>
#include <cmath>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

/// A patch of more than this share of all ground is not judged by some points in it.
constexpr double kLarge = 0.005;

/// So many rows to either side can hold what one swept backward.
constexpr std::size_t kNext = 24;

/// How often a way from one point to the next winds clockwise about another, counted
/// where it passes due east of that.
int WindingOf(geo::UtmPoint from, geo::UtmPoint to, geo::UtmPoint point) {
  const bool below = from.northing <= point.northing;
  if (below == (to.northing <= point.northing)) return 0;
  const int side = SideOf(from, to, point);
  return below && side > 0 ? -1 : !below && side < 0 ? 1 : 0;
}

int WindingsAround(std::span<const Boom> booms, geo::UtmPoint point) {
  int windings = WindingOf(booms.front().right, booms.front().left, point) +
                 WindingOf(booms.back().left, booms.back().right, point);
  for (std::size_t i = 0; i + 1 < booms.size(); ++i) {
    windings += WindingOf(booms[i].left, booms[i + 1].left, point) +
                WindingOf(booms[i + 1].right, booms[i].right, point);
  }
  return windings;
}

/// Whether some of the ground about a patch's middle, which lies next to a row, does not show.
bool IsHidden(const Patch& patch, std::size_t row, std::span<const Boom> booms, bool isBackward) {
  const std::size_t first = row - std::min(row, kNext);
  const auto next = booms.subspan(first, std::min(booms.size(), row + 2 + kNext) - first);
  const auto corners = patch.Line().first(patch.count - 1);
  geo::UtmPoint middle;
  for (const geo::UtmPoint& corner : corners) {
    middle.easting += corner.easting / static_cast<double>(corners.size());
    middle.northing += corner.northing / static_cast<double>(corners.size());
  }
  // Half way from the middle to each corner.
  return std::ranges::any_of(corners, [&](const geo::UtmPoint& corner) {
    const int windings = WindingsAround(
        next, {(middle.easting + corner.easting) / 2, (middle.northing + corner.northing) / 2});
    return (isBackward ? -windings : windings) <= 0;
  });
}

}  // namespace

Sweep::Sweep(std::span<const Boom> booms, base::LoopYield& yield) {
  for (std::size_t i = 0; i + 1 < booms.size(); ++i) {
    yield.Step();
    length += std::sqrt(SquareDistance(booms[i].left, booms[i + 1].left)) +
              std::sqrt(SquareDistance(booms[i].right, booms[i + 1].right));
    const Strip strip(booms[i], booms[i + 1]);
    for (const Patch& patch : strip.Patches()) {
      net += patch.squareMetres;
      total += std::fabs(patch.squareMetres);
    }
  }
  isBackward = net < 0;
  net = std::fabs(net);
  // Strip by strip once more: keeping the patches takes more memory than all else of a polygon.
  for (std::size_t i = 0; i + 1 < booms.size(); ++i) {
    yield.Step();
    const Strip strip(booms[i], booms[i + 1]);
    for (const Patch& patch : strip.Patches()) {
      const double squareMetres = isBackward ? patch.squareMetres : -patch.squareMetres;
      if (squareMetres < 0) continue;
      if (squareMetres <= kLarge * total && !IsHidden(patch, i, booms, isBackward)) continue;
      hidden.push_back(patch);
      hiddenGround += squareMetres;
    }
  }
}

Line LineAround(std::span<const Boom> booms) {
  Line line;
  line.reserve(2 * booms.size() + 1);
  for (const Boom& boom : booms) line.push_back(boom.left);
  // NOLINTNEXTLINE(modernize-loop-convert): Clang 14 does not know the library's reversed view.
  for (auto boom = booms.rbegin(); boom != booms.rend(); ++boom) line.push_back(boom->right);
  if (!line.empty()) line.push_back(line.front());
  return line;
}

}  // namespace kestrin::ground
