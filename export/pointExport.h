#pragma once

#include <string>

#include "export/exportRun.h"

namespace kestrin {

ExportOutcome ExportPointShape(const std::string& basePath, const std::string& jobPath,
                              ExportRun& run);

}  // namespace kestrin
