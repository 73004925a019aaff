#pragma once

#include <string>

#include "base/runHost.h"
#include "preview/picture.h"
#include "preview/previewState.h"

namespace kestrin::preview {

/// Finds the ground that the vehicle and its implement covered and the scale at
/// which it fits the picture with a margin; draws nothing, but clears the picture.
///
/// With an empty `jobPath` nothing happens. Otherwise the state's path is emptied
/// and set to `jobPath` only when the pass came through. A job that cannot be read
/// or has no reference location leaves the extent of the job before and the path
/// empty; a job without GPS rows leaves that extent too but does set the path.
/// Counts and yields once per GPS row; shows no message.
void FindPreviewExtent(const std::string& jobPath, PreviewState& state, Picture& picture,
                       base::RunHost& host);

}  // namespace kestrin::preview
