#pragma once

#include <string>

#include "export/exportRun.h"

namespace kestrin {

ExportOutcome ExportPolyShape(const std::string& basePath, const std::string& jobPath,
                              ExportRun& run);

}  // namespace kestrin
