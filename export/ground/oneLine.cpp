#include "export/ground/oneLine.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

constexpr double kWidth = 0.001;  // of necks and slits
constexpr double kTrifle = 0.0005;

double SquareMetresIn(const Line& line) { return std::fabs(SignedArea(line)); }

/// Takes the smallest out of `lines`, up to so much ground together.
template <class Element, class LineOf>
void DropSmallest(std::vector<Element>& elements, double squareMetres, LineOf lineOf) {
  std::ranges::stable_sort(elements, std::ranges::greater(),
                           [&](const Element& element) { return SquareMetresIn(lineOf(element)); });
  while (!elements.empty()) {
    squareMetres -= SquareMetresIn(lineOf(elements.back()));
    if (squareMetres < 0) return;
    elements.pop_back();
  }
}

/// A rectangle about the way from one point to another, with as much beyond either end
/// as it is wide.
Line About(geo::UtmPoint from, geo::UtmPoint to) {
  const double length = std::sqrt(SquareDistance(from, to));
  const double east = length > 0 ? (to.easting - from.easting) / length : 1;
  const double north = length > 0 ? (to.northing - from.northing) / length : 0;
  const auto corner = [&](geo::UtmPoint end, double along, double aside) {
    return geo::UtmPoint{end.easting + kWidth * (along * east - aside * north),
                         end.northing + kWidth * (along * north + aside * east)};
  };
  const geo::UtmPoint first = corner(from, -1, 0.5);
  return {first, corner(to, 1, 0.5), corner(to, 1, -0.5), corner(from, -1, -0.5), first};
}

/// All pieces as one: each has a neck to the first, the largest.
Geos::Area WithNecks(Geos& geos, const std::vector<Piece>& pieces) {
  const Geos::Area largest = geos.Inside(pieces.front());
  std::vector<Geos::Area> others;
  for (const Piece& piece : std::span(pieces).subspan(1)) others.push_back(geos.Inside(piece));
  const auto ways = geos.WaysTo(largest, others);
  for (const auto& [from, to] : ways) others.push_back(geos.Inside(About(from, to)));
  others.push_back(geos.Inside(pieces.front()));
  return geos.Union(std::move(others));
}

Line Turned(Line line, int quarters) {
  for (geo::UtmPoint& point : line) point = QuarterTurned(point, quarters);
  return line;
}

/// Lowers `northing` to where a line due north from `from` first meets another line, which
/// may touch the point itself.
void MeetNorthOf(geo::UtmPoint from, const Line& line, double& northing) {
  constexpr double kTouching = 1e-6;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    const auto [west, east] = std::minmax(
        line[i], line[i + 1], [](const auto& a, const auto& b) { return a.easting < b.easting; });
    if (from.easting < west.easting || from.easting >= east.easting) continue;
    const double share = (from.easting - west.easting) / (east.easting - west.easting);
    const double meeting = west.northing + share * (east.northing - west.northing);
    if (meeting > from.northing - kTouching && meeting < northing) northing = meeting;
  }
}

/// The slits north from a piece's holes, each into the line around the piece or into the
/// next hole, from which another leads on.
std::vector<Line> SlitsNorth(const Piece& piece) {
  std::vector<Line> slits;
  for (const Line& hole : piece.holes) {
    const geo::UtmPoint from = *std::ranges::max_element(hole, {}, &geo::UtmPoint::northing);
    geo::UtmPoint to{from.easting, std::numeric_limits<double>::infinity()};
    MeetNorthOf(from, piece.shell, to.northing);
    for (const Line& other : piece.holes) {
      if (&other != &hole) MeetNorthOf(from, other, to.northing);
    }
    if (to.IsFinite()) slits.push_back(About(from, to));
  }
  return slits;
}

/// A piece without holes, which slits open after so many quarter turns from north.
Geos::Area WithSlits(Geos& geos, const Piece& piece, int quarters) {
  Piece turned{Turned(piece.shell, quarters), {}};
  for (const Line& hole : piece.holes) turned.holes.push_back(Turned(hole, quarters));
  std::vector<Geos::Area> slits;
  for (Line& slit : SlitsNorth(turned)) {
    slits.push_back(geos.Inside(Turned(std::move(slit), 4 - quarters)));
  }
  return geos.Difference(geos.Inside(piece), geos.Union(std::move(slits)));
}

}  // namespace

Line OneLineAround(Geos& geos, const Geos::Area& area) {
  constexpr int kRounds = 8;
  const double trifle = kTrifle * geos.SquareMetres(area);
  std::vector<Piece> pieces = geos.Pieces(area);
  for (int round = 0; round < kRounds && !pieces.empty(); ++round) {
    DropSmallest(pieces, trifle, [](const Piece& piece) -> const Line& { return piece.shell; });
    for (Piece& piece : pieces) DropSmallest(piece.holes, trifle, std::identity());
    const bool whole = pieces.size() == 1;
    if (whole && pieces.front().holes.empty()) return std::move(pieces.front().shell);
    // A slit can lie across a neck. In another direction the next may not.
    pieces = geos.Pieces(whole ? WithSlits(geos, pieces.front(), round / 2 % 4)
                               : WithNecks(geos, pieces));
  }
  return {};
}

Line HullAround(Geos& geos, std::span<const Boom> booms) {
  Line points;
  for (const Boom& boom : booms) points.insert(points.end(), {boom.left, boom.right});
  const Geos::Area hull = geos.HullOf(points, kWidth);
  std::vector<Piece> pieces = geos.Pieces(hull);
  return pieces.empty() ? Line() : std::move(pieces.front().shell);
}

}  // namespace kestrin::ground
