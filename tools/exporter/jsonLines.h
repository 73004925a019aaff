#pragma once

#include <string>

#include "tools/exporter/failure.h"
#include "tools/exporter/jobSummary.h"

namespace kestrin::exporter {

struct MadeSet;

/// The version of what the lines below say and mean. It rises when something that a reader may
/// have relied on goes or changes; what is added leaves it.
inline constexpr int kJsonVersion = 1;

// A line each, without its end, complete by itself: docs/json.md. Bytes that are no UTF-8, as
// a path may have, are replaced by U+FFFD.

std::string JsonLine(const MadeSet& set);
std::string JsonLine(const JobSummary& summary);
std::string JsonLine(const Failure& failure);

}  // namespace kestrin::exporter
