#pragma once

#include <functional>
#include <span>

#include "export/ground/geos.h"
#include "export/ground/sweep.h"

namespace kestrin::ground {

/// The ground swept over consecutive rows: the union of the strips between each two,
/// forward and backward alike. Needs some ground.
///
/// That is what the line around the rows winds about, which is one call of the library for
/// some hundred rows, and the patches hidden in it, one by one; they are left out, as they
/// cost the most, where they are not more than `mayBeWrong` square metres. Costs some microseconds
/// a row. Calls `yield` now and then, and lets pass what it throws. Failure: GeometryError.
Geos::Area SweptGround(Geos& geos, std::span<const Boom> booms, const Sweep& sweep,
                       double mayBeWrong, const std::function<void()>& yield);

}  // namespace kestrin::ground
