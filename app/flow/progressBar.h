#pragma once

#include "app/flow/controls.h"
#include "app/flow/ports.h"
#include "app/flow/windowState.h"

namespace kestrin::flow {

/// How much of a bar's track is filled: the track's width, as a whole number, times
/// the share of the rows done; two passes share one bar. The total must be above 0.
double ProgressBarWidth(double trackWidth, const Progress& progress);

/// A tick of a progress bar's timer. Lets pending events run; without a total the
/// bar stays as it is.
void TickProgressBar(ControlId track, ControlId bar, const Progress& progress, const Ports& ports);

}  // namespace kestrin::flow
