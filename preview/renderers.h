#pragma once

#include "base/runHost.h"
#include "preview/picture.h"
#include "preview/previewExtent.h"

namespace kestrin::preview {

/// What a renderer draws in: its lines, and the inside of what it fills.
struct Colours {
  Bgr line;
  Bgr fill;
};

/// Draws the job in the colours of a kind: 0 wire, 1 boom, 2 polygon, 3 point. Another number
/// draws nothing.
void DrawPreview(int kind, const PreviewState& state, Picture& picture, base::RunHost& host);

// The renderers behind it, one a kind. Each clears the picture, draws the state's job by its
// extent, counting and yielding once per GPS row, and refreshes the picture at the end.
// Without a job path it does nothing.
//
// A job that cannot be read ends a renderer silently, with what was drawn.

/// The driven path: one polyline per stretch. A stretch begins at each row whose `type` has
/// the value 16384 in it; one of a single point is not drawn. Not clipped to the extent.
void DrawWirePreview(const PreviewState& state, Colours colours, Picture& picture,
                     base::RunHost& host);

/// Every section of positive width at every epoch as a line across the vehicle's heading,
/// whether it was switched on or not, and the last one once more as a polyline.
void DrawBoomPreview(const PreviewState& state, Colours colours, Picture& picture,
                     base::RunHost& host);

/// The covered swath as filled quadrilaterals between one epoch and the next, with an outline
/// along both sides, an edge at the start of each run and one where it breaks. A run breaks at
/// each row whose `type` has the value 16384 in it.
void DrawPolyPreview(const PreviewState& state, Colours colours, Picture& picture,
                     base::RunHost& host);

/// A circle of radius 3 picture units at every epoch that lies within the extent.
void DrawPointPreview(const PreviewState& state, Colours colours, Picture& picture,
                      base::RunHost& host);

}  // namespace kestrin::preview
