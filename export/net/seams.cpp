#include "export/net/seams.h"

#include <algorithm>
#include <cmath>

#include "export/net/place.h"

namespace kestrin::net {
namespace {

using ground::Line;

/// The points that lines come by more than once, in order.
Line TouchesOf(const std::vector<ground::Piece>& pieces) {
  Line points;
  const auto add = [&](const Line& line) {
    points.insert(points.end(), line.begin() + 1, line.end());
  };
  for (const ground::Piece& piece : pieces) {
    add(piece.shell);
    std::ranges::for_each(piece.holes, add);
  }
  std::ranges::sort(points, {}, kPlace);
  Line touches;
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (points[i - 1] == points[i]) touches.push_back(points[i]);
  }
  return touches;
}

}  // namespace

bool Seams::IsOn(double coordinate) const { return std::fmod(coordinate, side_) == 0; }

void Seams::Take(const std::vector<ground::Piece>& tile) {
  const Line touches = TouchesOf(tile);
  for (const ground::Piece& piece : tile) {
    Take(piece.shell, touches);
    for (const Line& hole : piece.holes) Take(hole, touches);
  }
}

void Seams::Take(const Line& line, const Line& touches) {
  const auto isKnot = [&](geo::UtmPoint point) {
    return point == line.back() || IsOn(point.easting) || IsOn(point.northing) ||
           std::ranges::binary_search(touches, kPlace(point), {}, kPlace);
  };
  Line way{line.front()};
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (!TakeBorder(line[i - 1], line[i])) {
      way.push_back(line[i]);
      if (!isKnot(line[i])) continue;
      ways_.push_back(geos_.Way(way));
    }
    way = {line[i]};
  }
}

bool Seams::TakeBorder(geo::UtmPoint from, geo::UtmPoint to) {
  const bool north = from.easting == to.easting && IsOn(from.easting);
  if (!north && !(from.northing == to.northing && IsOn(from.northing))) return false;
  const auto end = [&](geo::UtmPoint at, int change) {
    ends_.push_back(north ? End(true, at.easting, at.northing, change)
                          : End(false, at.northing, at.easting, change));
  };
  end(from, 1);
  end(to, -1);
  return true;
}

std::vector<ground::Piece> Seams::Join() {
  std::ranges::sort(ends_);
  int open = 0;
  for (std::size_t i = 0; i + 1 < ends_.size(); ++i) {
    const auto& [north, border, from, change] = ends_[i];
    const double to = std::get<2>(ends_[i + 1]);
    open += change;
    if (open == 0 || from == to) continue;
    ways_.push_back(
        geos_.Way(north ? Line{{border, from}, {border, to}} : Line{{from, border}, {to, border}}));
  }
  return geos_.Pieces(geos_.Enclosed(ways_));
}

}  // namespace kestrin::net
