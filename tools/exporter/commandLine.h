#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "export/exportKinds.h"
#include "export/setNames.h"

namespace kestrin::exporter {

/// What the command line asks for.
struct ExportOptions {
  /// In their order, each once.
  std::vector<const exports::ExportKind*> kinds;
  /// The folder that job folders go into.
  std::string out{exports::kDataFolderName};
  /// Base path without suffix; then there is one job.
  std::string base;
  unsigned jobs = 1;     ///< at once
  unsigned threads = 1;  ///< for all of them together
  bool prj = false;
  bool allSections = false;  ///< of the net set
  bool quiet = false;
  bool json = false;
  bool summary = false;
  bool recursive = false;
  /// Job files and folders.
  std::vector<std::string> jobPaths;
};

/// Reads the command line into `options` and returns nothing, or returns the exit
/// code when there is nothing to do: help or version (printed to stdout) or wrong
/// usage (said on stderr).
std::optional<int> ParseCommandLine(int argc, const char* const* argv, ExportOptions& options);

}  // namespace kestrin::exporter
