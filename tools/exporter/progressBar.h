#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kestrin::exporter {

/// One set being made: how far it is.
struct SetProgress {
  std::string kind;
  std::string job;
  std::int64_t done = 0;   ///< rows
  std::int64_t total = 0;  ///< rows; 0 when not known
};

/// The line that shows the sets being made, `columns` wide at most: a bar and the
/// rows done of the total, of all of them together, then kind and job of each.
std::string ProgressLine(const std::vector<SetProgress>& sets, int columns);

}  // namespace kestrin::exporter
