#pragma once

#include "base/loopYield.h"
#include "export/ground/geos.h"

namespace kestrin::ground {

/// Cuts the loops off a closed line of at least four points: those of few points that a
/// boom's end draws when it jitters or wavers, where they close. A loop may hold ground, or
/// none, that the rest of the line shows otherwise: what it holds is taken from
/// `squareMetres`, and one that holds more than is left there stays. So the result may still
/// cross itself, as it does where parts far from each other on the line cross.
///
/// A line that crosses nothing comes back as it went in, but for its beginning. Costs some
/// tens of nanoseconds a point. Nothing fails but what `yield` throws; points must be finite.
Line Unfold(const Line& closed, double& squareMetres, base::LoopYield& yield);

}  // namespace kestrin::ground
