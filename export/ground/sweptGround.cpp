#include "export/ground/sweptGround.h"

#include <algorithm>
#include <cmath>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

/// How often a closed line winds about a point, counted clockwise.
int WindingsAbout(geo::UtmPoint point, std::span<const geo::UtmPoint> line) {
  int windings = 0;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    const geo::UtmPoint& from = line[i];
    const geo::UtmPoint& to = line[i + 1];
    const bool below = from.northing <= point.northing;
    if (below == (to.northing <= point.northing)) continue;
    const int side = SideOf(from, to, point);
    if (below && side > 0) --windings;
    if (!below && side < 0) ++windings;
  }
  return windings;
}

/// Whether the line winds about a patch: about its middle, and half way from there to
/// each corner.
bool WindsAbout(const Patch& patch, std::span<const geo::UtmPoint> line) {
  const auto corners = patch.Line().first(patch.count - 1);
  geo::UtmPoint middle;
  for (const geo::UtmPoint& corner : corners) {
    middle.easting += corner.easting / static_cast<double>(corners.size());
    middle.northing += corner.northing / static_cast<double>(corners.size());
  }
  return std::ranges::all_of(corners, [&](const geo::UtmPoint& corner) {
    return WindingsAbout(
               {(middle.easting + corner.easting) / 2, (middle.northing + corner.northing) / 2},
               line) > 0;
  });
}

/// Rows that one call of the library takes, whose costs grow faster than their number.
class Stretch {
 public:
  explicit Stretch(std::span<const Boom> booms) {
    double forward = 0;
    double both = 0;
    for (std::size_t i = 0; i + 1 < booms.size(); ++i) {
      const Strip strip(booms[i], booms[i + 1]);
      for (const Patch& patch : strip.Patches()) {
        forward += patch.squareMetres;
        both += std::fabs(patch.squareMetres);
        patches_.push_back(patch);
      }
    }
    for (const Boom& boom : booms) line_.push_back(boom.left);
    for (auto boom = booms.rbegin(); boom != booms.rend(); ++boom) line_.push_back(boom->right);
    line_.push_back(line_.front());
    large_ = both * kLarge;
    // Driven backward for the most part, it is the other way round.
    if (forward >= 0) return;
    std::ranges::reverse(line_);
    for (Patch& patch : patches_) patch.squareMetres = -patch.squareMetres;
  }

  /// Whether the winding number may not tell that a patch is ground.
  bool IsLeftOut(const Patch& patch) const {
    return patch.squareMetres < 0 && (patch.squareMetres < -large_ || !WindsAbout(patch, line_));
  }

  void AddTo(std::vector<Geos::Area>& areas, Geos& geos) const {
    if (patches_.empty()) return;
    Geos::Area inside = geos.WoundAbout(line_);
    for (const Patch& patch : patches_) {
      if (!inside || IsLeftOut(patch)) {
        areas.push_back(geos.Inside(patch.Line()));
      }
    }
    if (inside) areas.push_back(std::move(inside));
  }

 private:
  /// A patch of more than this share of the ground is not judged by some points in it.
  static constexpr double kLarge = 0.005;

  std::vector<Patch> patches_;
  double large_ = 0;
  Line line_;
};

}  // namespace

Geos::Area SweptGround(Geos& geos, std::span<const Boom> booms, base::RunHost& host) {
  constexpr std::size_t kTogether = 512;
  std::vector<Geos::Area> areas;
  for (std::size_t first = 0; first + 1 < booms.size(); first += kTogether) {
    host.Yield();
    Stretch(booms.subspan(first, std::min(kTogether + 1, booms.size() - first))).AddTo(areas, geos);
  }
  return areas.size() == 1 ? std::move(areas.front()) : geos.Union(std::move(areas));
}

}  // namespace kestrin::ground
