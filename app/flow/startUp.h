#pragma once

#include <string>

#include "app/flow/ports.h"
#include "app/flow/windowState.h"
#include "export/setNames.h"

namespace kestrin::flow {

/// Takes the program's own folder, and the data folder in it, which is made when it
/// is not there. That failing is no reason not to start: an export then offers the
/// user's documents.
void EnterApplicationFolder(WindowState& state, base::FileSystem& files, const std::string& folder,
                            char separator = base::kSeparator);

/// Empties the text under every kind's button.
void ClearShapeLabels(Controls& controls);

}  // namespace kestrin::flow
