#pragma once

#include <string>

#include "base/runHost.h"
#include "geo/box.h"
#include "preview/picture.h"

namespace kestrin::preview {

/// The ground a preview shows.
struct PreviewExtent {
  /// UTM metres: x east, y north.
  geo::Box ground;
  /// Metres per picture unit, the same both ways; 0 when the job covers one point.
  double scale = 0;

  friend bool operator==(const PreviewExtent&, const PreviewExtent&) = default;
};

/// The job that the previews draw, kept by the window from one selection to the next.
struct PreviewState {
  /// Empty until an extent was found for a job; the previews then draw nothing.
  std::string jobPath;
  PreviewExtent extent;
};

/// Finds the ground that the vehicle and its implement covered and the scale at which it
/// fits the picture with a margin, and takes the job for the one to be drawn. Clears the
/// picture. Counts and yields once per GPS row. With an empty `jobPath` nothing happens.
///
/// A job that cannot be read or has no reference location, or a pass that is cancelled,
/// leaves the state without a job, and the extent of the job before; a job without GPS rows
/// leaves that extent too but is the job. No message is shown.
void FindPreviewExtent(std::string jobPath, PreviewState& state, Picture& picture,
                       base::RunHost& host);

}  // namespace kestrin::preview
