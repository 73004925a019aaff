#pragma once

#include <vector>

#include "base/runHost.h"
#include "export/ground/geos.h"
#include "export/net/pieces.h"
#include "geo/points.h"
#include "geo/workingPlane.h"

namespace kestrin::net {

/// Turns pieces of ground into degrees: eastings into longitudes, northings into latitudes.
///
/// What is valid in metres need not be valid in degrees: straight lines of the plane are bent
/// there. Long ones get points in between, so that none rises by more than half of what the grid
/// keeps it away from another's points. A piece of few points is judged by the geometry library
/// as well, and mended when it is not valid, which can take it apart; its parts then share its
/// area. To judge one of many takes too long.
class DegreePieces {
 public:
  explicit DegreePieces(const geo::WorkingPlane& plane) : plane_(plane) {}

  /// Yields in between.
  std::vector<NetPiece> Of(const NetPiece& piece, base::RunHost& host);

 private:
  ground::Line Projected(const ground::Line& line, base::RunHost& host) const;

  const geo::WorkingPlane& plane_;
  ground::Geos geos_;
};

}  // namespace kestrin::net
