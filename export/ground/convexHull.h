#pragma once

#include "export/ground/geos.h"

namespace kestrin::ground {

/// The closed line around the convex hull of points, clockwise, beginning at the westernmost;
/// without corners that are none. Empty when all points lie on one line.
///
/// Costs n log n. Nothing fails; points must be finite.
Line ConvexHullOf(Line points);

}  // namespace kestrin::ground
