#pragma once

#include "base/runHost.h"
#include "preview/picture.h"
#include "preview/previewState.h"

namespace kestrin::preview {

/// Sets the colours of a kind and draws it: 0 wire, 1 boom, 2 polygon, 3 point.
/// Another number draws nothing.
void DrawPreview(int kind, const PreviewState& state, Picture& picture, base::RunHost& host);

}  // namespace kestrin::preview
