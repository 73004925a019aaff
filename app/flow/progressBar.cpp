#include "app/flow/progressBar.h"

#include <cmath>

namespace kestrin::flow {

double ProgressBarWidth(double trackWidth, const Progress& progress) {
  const double passes = progress.twoPass ? 2 : 1;
  return std::nearbyint(trackWidth) * (progress.count / (passes * progress.total));
}

void TickProgressBar(ControlId track, ControlId bar, const Progress& progress, const Ports& ports) {
  if (progress.total > 0) {
    ports.controls.SetWidth(bar, ProgressBarWidth(ports.controls.Width(track), progress));
  }
  ports.events.DoEvents();
}

}  // namespace kestrin::flow
