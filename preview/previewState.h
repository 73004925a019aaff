#pragma once

#include <string>

namespace kestrin::preview {

/// The ground a preview shows, in metres of the working plane: x east, y north.
struct PreviewExtent {
  double xMin = 0;
  double yMin = 0;
  double xMax = 0;
  double yMax = 0;
  /// Metres per picture unit, the same both ways; 0 when the job covers one point.
  double scale = 0;

  friend bool operator==(const PreviewExtent&, const PreviewExtent&) = default;
};

/// The job that the previews draw, kept by the window from one selection to the
/// next.
struct PreviewState {
  /// Empty until an extent was found for a job; the previews then draw nothing.
  std::string jobPath;
  PreviewExtent extent;
};

}  // namespace kestrin::preview
