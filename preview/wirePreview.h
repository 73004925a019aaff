#pragma once

#include "base/runHost.h"
#include "preview/picture.h"
#include "preview/previewState.h"

namespace kestrin::preview {

/// Draws the driven path: one polyline per stretch. A stretch begins at each row
/// whose `type` has bit 16384; one of a single point is not drawn. Not clipped to
/// the extent.
///
/// Clears the picture first and refreshes it at the end. Draws nothing without a
/// job path; ends silently, with what was drawn, when the job cannot be read.
/// Counts and yields once per GPS row.
void DrawWirePreview(const PreviewState& state, Picture& picture, base::RunHost& host);

}  // namespace kestrin::preview
