#include "export/net/tile.h"

#include <algorithm>

namespace kestrin::net {
namespace {

using ground::Clearance;
using ground::Geos;

/// Wider than what the grid moves points by.
constexpr double kGap = 0.002;
constexpr double kStep = 0.001;

}  // namespace

geo::UtmPoint Tile::BesideBorder(geo::UtmPoint point) const {
  geo::UtmPoint at = grid_.OnGrid(point);
  if (at.easting == box_.xMin || at.easting == box_.xMax) at.easting += kStep;
  if (at.northing == box_.yMin || at.northing == box_.yMax) at.northing += kStep;
  return at;
}

ground::Line Tile::BesideBorder(std::span<const geo::UtmPoint> points) const {
  ground::Line line;
  line.reserve(points.size());
  for (const geo::UtmPoint& point : points) line.push_back(BesideBorder(point));
  return line;
}

void Tile::Lay(Span span, std::uint32_t first, std::uint32_t last) {
  ground::Line outline;
  for (std::uint32_t row = first; row <= last; ++row) outline.push_back(track_.At(row, span).left);
  for (std::uint32_t row = last + 1; row-- > first;) outline.push_back(track_.At(row, span).right);
  if (const Geos::Area whole = grid_.Inside(BesideBorder(outline), Clearance::kWide)) {
    Clip(whole);
  } else if (last - first > 1) {
    const std::uint32_t middle = (first + last) / 2;
    Lay(span, first, middle);
    Lay(span, middle, last);
  } else {
    LayStep(track_.At(first, span), track_.At(last, span));
  }
}

void Tile::LayStep(const Boom& from, const Boom& to) {
  const ground::Strip strip(from, to);
  for (const ground::Patch& patch : strip.Patches()) {
    const ground::Line line = BesideBorder(patch.Line());
    Geos::Area whole = grid_.Inside(line, Clearance::kTight);
    // Where a corner all but lies on a line, the grid can make lines cross.
    if (!whole) whole = geos_.Mended(geos_.Inside(line));
    Clip(whole);
  }
}

void Tile::Clip(const Geos::Area& area) {
  for (const ground::Piece& piece : geos_.Pieces(grid_.Clipped(area, box_))) {
    geo::Box bounds;
    for (const geo::UtmPoint& point : piece.shell) bounds.Widen(point);
    Geos::Area onGrid = grid_.Inside(piece.shell, Clearance::kWide);
    const bool isSimple = onGrid != nullptr;
    if (isSimple && cover_ && geos_.Covers(cover_, onGrid)) continue;
    parts_.push_back({isSimple ? std::move(onGrid) : geos_.Inside(piece), bounds, !isSimple});
  }
  if (parts_.size() > mostParts_) Unite();
}

void Tile::Unite() {
  std::vector<Geos::Area> areas;
  for (Part& part : parts_) areas.push_back(std::move(part.area));
  parts_.clear();
  cover_.reset();
  if (united_) areas.push_back(std::move(united_));
  united_ = grid_.Union(std::move(areas));
  cover_ = geos_.Prepare(united_);
  // In proportion to its points, or uniting it again and again would take longest.
  const int points = GEOSGetNumCoordinates_r(geos_.Handle(), united_.get());
  mostParts_ = std::max(kMany, static_cast<std::size_t>(points)) / 4;
}

void Tile::FindClose() {
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    Part& part = parts_[i];
    if (united_) part.isClose = true;
    const geo::Box around = part.box.Grown(kGap);
    for (std::size_t j = 0; j < i; ++j) {
      Part& other = parts_[j];
      if ((part.isClose && other.isClose) || !around.Overlaps(other.box)) continue;
      if (geos_.AreWithin(part.area, other.area, kGap)) part.isClose = other.isClose = true;
    }
  }
}

Geos::Area Tile::Square() const {
  const ground::Line corners{{box_.xMin, box_.yMin},
                             {box_.xMin, box_.yMax},
                             {box_.xMax, box_.yMax},
                             {box_.xMax, box_.yMin},
                             {box_.xMin, box_.yMin}};
  return geos_.Inside(corners);
}

std::vector<ground::Piece> Tile::Ground(std::span<const Stretch> stretches) {
  for (const Stretch& stretch : stretches) Lay(stretch.span, stretch.first, stretch.last);
  FindClose();
  std::vector<ground::Piece> pieces;
  const auto take = [&](const Geos::Area& area) {
    std::ranges::move(geos_.Pieces(area), std::back_inserter(pieces));
  };
  for (const Part& part : parts_) {
    if (!part.isClose) take(part.area);
  }
  std::erase_if(parts_, [](const Part& part) { return !part.isClose; });
  if (!parts_.empty()) Unite();
  if (united_) take(grid_.Common(united_, Square()));
  return pieces;
}

}  // namespace kestrin::net
