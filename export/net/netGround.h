#pragma once

#include <vector>

#include "base/runHost.h"
#include "export/ground/geos.h"
#include "export/net/track.h"

namespace kestrin::net {

/// The ground of a job. UTM metres.
struct Ground {
  /// In connected pieces. Their points lie on a grid of a millimetre: no position in a job is
  /// truer.
  std::vector<ground::Piece> pieces;
  /// Every pass counts, of a bow tie both triangles.
  double sweptSquareMetres = 0;
};

/// Finds the union of all that was worked, tile by tile, and joins it along the tiles' borders,
/// so that no single step grows with the job but the last. Yields in between.
/// Failure: ground::GeometryError, which is not expected.
Ground NetGround(const Track& track, base::RunHost& host);

}  // namespace kestrin::net
