#pragma once

#include <span>

#include "base/loopYield.h"
#include "export/ground/geos.h"
#include "export/ground/sweep.h"

namespace kestrin::ground {

/// The ground swept over consecutive rows: the union of the strips between each two,
/// forward and backward alike. Needs some ground.
///
/// That is what the line around the rows winds about, which is one call of the library for
/// each two thousand rows, and the patches hidden in it, one by one; they are left out, as they
/// cost the most, where they are not more than `mayBeWrong` square metres. Costs some microseconds
/// a row. Calls `yield` now and then, and lets pass what it throws. Failure: GeometryError.
Geos::Area SweptGround(Geos& geos, std::span<const Boom> booms, const Sweep& sweep,
                       double mayBeWrong, base::LoopYield& yield);

}  // namespace kestrin::ground
