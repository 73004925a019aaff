#pragma once

#include <cstdint>
#include <string>

/// The companion's own words for what can go wrong with a job.

namespace kestrin::exporter {

/// For a job without a reference location or without GPS rows.
inline constexpr const char* kNothingToExport = "no set made: nothing to export";

/// For rows that ended with the library's error code instead of their end.
inline std::string UnreadableRows(std::int64_t epochs, std::int32_t code) {
  return "could not be read to its end: " + std::to_string(epochs) + " epochs written, code " +
         std::to_string(code);
}

}  // namespace kestrin::exporter
