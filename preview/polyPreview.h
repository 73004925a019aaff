#pragma once

#include "base/runHost.h"
#include "preview/picture.h"
#include "preview/previewState.h"

namespace kestrin::preview {

/// Draws the covered swath as filled quadrilaterals between one epoch and the next,
/// with an outline along both sides and an edge at either end of each run. The
/// outline takes the picture's ForeColor, the inside its FillColor; both are as
/// before at the end. A run ends at each row whose `type` has bit 16384.
///
/// Clears the picture first and refreshes it at the end. Draws nothing without a
/// job path; ends silently, with what was drawn, when the job cannot be read.
/// Counts and yields once per GPS row.
void DrawPolyPreview(const PreviewState& state, Picture& picture, base::RunHost& host);

}  // namespace kestrin::preview
