#pragma once

#include <span>

#include "export/ground/geos.h"
#include "export/ground/strip.h"

namespace kestrin::ground {

/// The one closed line around an area, clockwise, for a record that can hold no more.
///
/// Pieces are joined by necks a millimetre wide, and holes opened by slits of that width:
/// what a polygon in one line can be made of, at no ground to speak of. Before that the
/// smallest pieces are left out and the smallest holes filled, as long as either is not
/// more than a two-thousandth of the area together: at the end of a wavering boom there can be a
/// hundred of a few square centimetres.
///
/// Empty when the area is, or when it cannot be done.
/// Failure: GeometryError.
Line OneLineAround(Geos& geos, const Geos::Area& area);

/// The convex line around booms, a millimetre wider than they: what can be said of ground
/// too thin for a line of its own. Empty where the numbers are too large for a millimetre.
/// Failure: GeometryError.
Line HullAround(Geos& geos, std::span<const Boom> booms);

}  // namespace kestrin::ground
