#pragma once

#include "base/runHost.h"
#include "preview/picture.h"
#include "preview/previewState.h"

namespace kestrin::preview {

/// Draws a circle of radius 3 at every epoch that lies within the extent.
///
/// Clears the picture first and refreshes it at the end. Draws nothing without a
/// job path; ends silently, with what was drawn, when the job cannot be read.
/// Counts and yields once per GPS row.
void DrawPointPreview(const PreviewState& state, Picture& picture, base::RunHost& host);

}  // namespace kestrin::preview
