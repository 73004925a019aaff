#pragma once

#include <vector>

#include "base/runHost.h"
#include "export/ground/geos.h"
#include "export/net/pieces.h"
#include "geo/points.h"
#include "geo/workingPlane.h"

namespace kestrin::net {

/// A closed line in degrees.
using DegreeLine = std::vector<geo::GeoPoint>;

/// A piece as it is written: its outer line, clockwise, then those of its holes.
struct DegreePiece {
  std::vector<DegreeLine> lines;
  double squareMetres = 0;  ///< in the plane
};

/// Turns pieces of ground into degrees.
///
/// What is valid in metres need not be valid in degrees: long straight lines of the plane are
/// bent there, by more than the grid keeps a line away from another's points. What is not valid
/// is mended by the geometry library, which can take a piece apart; its parts then share its
/// area. A piece of very many points is judged only if it has lines that long.
class DegreePieces {
 public:
  explicit DegreePieces(const geo::WorkingPlane& plane) : plane_(plane) {}

  /// Yields in between.
  std::vector<DegreePiece> Of(const NetPiece& piece, base::RunHost& host);

 private:
  ground::Line Projected(const ground::Line& line, base::RunHost& host) const;

  const geo::WorkingPlane& plane_;
  ground::Geos geos_;
};

}  // namespace kestrin::net
