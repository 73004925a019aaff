#include "export/net/degreePieces.h"

#include <cmath>
#include <functional>
#include <numeric>

#include "export/ground/planeGeometry.h"

namespace kestrin::net {
namespace {

using ground::Line;
using ground::Piece;

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
  Line degrees;
  for (const geo::UtmPoint& metres : WithShortWays(line)) {
    host.Yield();
    const geo::GeoPoint point = plane_.ToGeo(metres);
    // To the library a point is two numbers, whatever they stand for.
    degrees.push_back({point.longitude, point.latitude});
  }
  return degrees;
}

std::vector<NetPiece> DegreePieces::Of(const NetPiece& piece, base::RunHost& host) {
  NetPiece degrees{{Projected(piece.outline.shell, host), {}}, piece.squareMetres};
  for (const Line& hole : piece.outline.holes) {
    degrees.outline.holes.push_back(Projected(hole, host));
  }
  if (PointsOf(piece.outline) > kFew) return {degrees};
  const ground::Geos::Area area = geos_.Inside(degrees.outline);
  if (geos_.IsValid(area)) return {degrees};

  std::vector<NetPiece> parts = InOrder(geos_.Pieces(geos_.Mended(area)));
  double sum = 0;
  for (const NetPiece& part : parts) sum += part.squareMetres;
  for (NetPiece& part : parts) part.squareMetres *= piece.squareMetres / sum;
  return parts;
}

}  // namespace kestrin::net
