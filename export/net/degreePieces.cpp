#include "export/net/degreePieces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numeric>
#include <span>

#include "export/ground/planeGeometry.h"

namespace kestrin::net {
namespace {

using ground::Line;
using ground::Piece;

void AddLine(const Line& line, DegreePiece& piece) {
  DegreeLine& degrees = piece.lines.emplace_back();
  degrees.reserve(line.size());
  for (const geo::UtmPoint& point : line) degrees.push_back({point.easting, point.northing});
}

DegreePiece WithLinesOf(const Piece& outline, double squareMetres) {
  DegreePiece piece;
  AddLine(outline.shell, piece);
  for (const Line& hole : outline.holes) AddLine(hole, piece);
  piece.squareMetres = squareMetres;
  return piece;
}

/// A line of this many metres is bent by less than half of the grid's millimetre.
constexpr double kLongestLine = 90;

/// Pieces of more points than this are not judged: for each hole the library may walk along all
/// others, and so take minutes.
constexpr std::size_t kFew = 5'000;

std::size_t PointsOf(const Piece& piece) {
  return std::transform_reduce(piece.holes.begin(), piece.holes.end(), piece.shell.size(),
                               std::plus(), [](const Line& hole) { return hole.size(); });
}

/// The line with points so close together that it is as straight in any frame.
Line WithShortWays(const Line& line) {
  Line all{line.front()};
  all.reserve(line.size());
  for (std::size_t i = 1; i < line.size(); ++i) {
    const double east = line[i].easting - line[i - 1].easting;
    const double north = line[i].northing - line[i - 1].northing;
    const double ways = std::ceil(std::hypot(east, north) / kLongestLine);
    for (double way = 1; way < ways; ++way) {
      all.push_back(
          {line[i - 1].easting + way / ways * east, line[i - 1].northing + way / ways * north});
    }
    all.push_back(line[i]);
  }
  return all;
}

}  // namespace

Line DegreePieces::Projected(const Line& line, base::RunHost& host) const {
  constexpr std::size_t kTogether = 64;
  std::array<geo::GeoPoint, kTogether> some{};
  const Line metres = WithShortWays(line);
  Line degrees;
  degrees.reserve(metres.size());
  for (std::size_t i = 0; i < metres.size(); i += kTogether) {
    host.Yield();
    const auto from = std::span(metres).subspan(i, std::min(kTogether, metres.size() - i));
    plane_.ToGeo(from, some);
    for (const geo::GeoPoint& point : std::span(some).first(from.size())) {
      // To the library a point is two numbers, whatever they stand for.
      degrees.push_back({point.longitude, point.latitude});
    }
  }
  return degrees;
}

std::vector<DegreePiece> DegreePieces::Of(const NetPiece& piece, base::RunHost& host) {
  Piece degrees{Projected(piece.outline.shell, host), {}};
  for (const Line& hole : piece.outline.holes) degrees.holes.push_back(Projected(hole, host));
  if (PointsOf(piece.outline) > kFew) return {WithLinesOf(degrees, piece.squareMetres)};
  const ground::Geos::Area area = geos_.Inside(degrees);
  if (geos_.IsValid(area)) return {WithLinesOf(degrees, piece.squareMetres)};

  std::vector<DegreePiece> parts;
  double sum = 0;
  for (const NetPiece& part : InOrder(geos_.Pieces(geos_.Mended(area)))) {
    parts.push_back(WithLinesOf(part.outline, part.squareMetres));
    sum += part.squareMetres;
  }
  for (DegreePiece& part : parts) part.squareMetres *= piece.squareMetres / sum;
  return parts;
}

}  // namespace kestrin::net
