#pragma once

#include <vector>

#include "base/runHost.h"
#include "export/ground/geos.h"
#include "export/net/runs.h"
#include "export/net/track.h"

namespace kestrin::net {

/// The union of the ground of all runs, in connected pieces. Their points lie on a grid of a
/// millimetre: no position in a job is truer. UTM metres.
///
/// It is found tile by tile and then joined along the tiles' borders, so that no single step
/// grows with the job but the last. Yields in between.
/// Failure: ground::GeometryError, which is not expected.
std::vector<ground::Piece> NetGround(const Runs& runs, base::RunHost& host);

}  // namespace kestrin::net
