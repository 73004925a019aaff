#pragma once

#include <string>

#include "app/platform/drives.h"
#include "export/setNames.h"

namespace kestrin::flow {

/// Where the first job dialog starts: the root of the first removable drive that is
/// ready and has a job file directly in it, or else `applicationFolder`. Other
/// drives are never looked at.
std::string DefaultJobFolder(const std::string& applicationFolder, platform::Drives& drives);

}  // namespace kestrin::flow
