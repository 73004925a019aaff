#pragma once

#include <cstddef>
#include <vector>

#include "base/runHost.h"
#include "export/ground/geos.h"

namespace kestrin::net {

/// A part of a line about ground, which lies to its right, and the piece it is of.
struct Chain {
  std::size_t piece = 0;
  ground::Line points;
};

/// Puts chains together to closed lines that touch themselves nowhere. At each point where
/// chains begin as many must end.
///
/// Where several go on from a point, the ground to the right of the one that ends there is
/// followed around to its other side: so no line leads over to other ground that only touches.
/// A line that comes by the same point twice is taken apart there. Yields in between.
/// Failure: ground::GeometryError for chains that do not close.
std::vector<Chain> WovenLines(std::vector<Chain> chains, base::RunHost& host);

}  // namespace kestrin::net
