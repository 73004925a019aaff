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

/// How fast a run goes: rows of all its sets.
struct Pace {
  std::int64_t done = 0;
  std::int64_t left = 0;
  double seconds = 0;  ///< so far
};

/// The line that shows the sets being made, `columns` wide at most: a bar and the rows done of
/// the total, of all of them together, rows in a second and time left of the whole run once
/// a second has told, then kind and job of each set.
std::string ProgressLine(const std::vector<SetProgress>& sets, const Pace& pace, int columns);

}  // namespace kestrin::exporter
