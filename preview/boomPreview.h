#pragma once

#include "base/runHost.h"
#include "preview/picture.h"
#include "preview/previewState.h"

namespace kestrin::preview {

/// Draws every section of positive width at every epoch as a line across the
/// vehicle's heading, whether it was switched on or not, and the last one once more
/// as a polyline. Section offsets are not turned with the heading.
///
/// Clears the picture first and refreshes it at the end. Draws nothing without a
/// job path; ends silently, with what was drawn, when the job cannot be read.
/// Counts and yields once per GPS row.
void DrawBoomPreview(const PreviewState& state, Picture& picture, base::RunHost& host);

}  // namespace kestrin::preview
