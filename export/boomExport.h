#pragma once

#include <string>

#include "export/exportRun.h"

namespace kestrin {

ExportOutcome ExportBoomShape(const std::string& basePath, const std::string& jobPath,
                              ExportRun& run);

}  // namespace kestrin
