#pragma once

#include <string>

namespace kestrin::gdal {

/// A job as its user opened it.
struct JobSource {
  std::string path;          ///< absolute: a host may change its folder before it reads
  bool allSections = false;  ///< of the net layer: ExportRun::allSections
};

}  // namespace kestrin::gdal
