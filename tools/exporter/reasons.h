#pragma once

#include <optional>
#include <string>

namespace kestrin::exporter {

/// What a failure's text says by a number, where it says it so.
struct Reason {
  std::optional<int> code;  ///< as the text shows it
  std::string words;        ///< what it means; empty where nothing is known of it
};

/// Reads the number at the end of the texts of jobs that cannot be opened, queried or read to
/// their end. The job's path tells a file that is missing from one that may not be read.
/// Everything else has words of its own, and neither code nor words come of it.
Reason ReasonIn(const std::string& text, const std::string& jobPath);

/// "Error opening: -14 (no such file)". The texts alone are the window's own and stay as they
/// are there.
std::string WithReason(const std::string& text, const std::string& jobPath);

}  // namespace kestrin::exporter
