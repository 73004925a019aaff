#pragma once

#include <span>

#include "base/runHost.h"
#include "export/ground/geos.h"
#include "export/ground/strip.h"

namespace kestrin::ground {

/// The ground that the implement swept over consecutive rows: the union of the strips
/// between each two, forward and backward alike. Needs at least two rows, all finite.
///
/// The line around the rows, up the left ends and down the right ones, winds once about a
/// place for each strip that swept it forward, and once the other way for each that swept
/// it backward. So where its winding number is positive there is ground; that is one call of the
/// library for some hundred rows. What was swept backward, and is not ground by
/// that count already, is added patch by patch.
///
/// Costs some microseconds a row. Yields to the host now and then, whose
/// base::RunCancelled passes.
/// Failure: GeometryError.
Geos::Area SweptGround(Geos& geos, std::span<const Boom> booms, base::RunHost& host);

}  // namespace kestrin::ground
