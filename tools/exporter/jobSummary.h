#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/crew.h"
#include "tools/exporter/jobPlan.h"

namespace kestrin::exporter {

class SetHost;

/// A day as people and as machines read it.
struct SummaryDay {
  std::string text;  ///< "2025Jun3", as in the names of sets
  std::string iso;   ///< "2025-06-03"
};

/// What is to be known of a job without making a set of it.
struct JobSummary {
  std::string jobPath;
  /// Of the first and the newest GPS row, where there are rows.
  SummaryDay first;
  SummaryDay newest;
  std::int64_t epochs = 0;
  bool complete = true;  ///< whether the job could be read to its end
  /// Sums of METERS of its wire set and of ACRES of its poly set; none where no such set would
  /// be made.
  std::optional<double> metres;
  std::optional<double> acres;
  std::string format;  ///< as the job says it; may be empty
  /// Names in force at some GPS row, in the order they first were, each once.
  std::vector<std::string> products;
};

/// How often Summarise counts every row of a job with its host.
inline constexpr int kSummaryWalks = 3;

/// Reads a job by the procedures that make its sets, and writes nothing. What fails is told to
/// the host. Throws RunCancelled when the process is asked to stop.
/// Failure: nothing, where the job cannot be opened or its GPS rows cannot be queried.
std::optional<JobSummary> Summarise(const std::string& jobPath, const DateRules& dates,
                                    SetHost& host, base::Crew& crew);

/// "north.sqlite: 2025Jun3, 600 epochs, 834.2 meters, 1.5 acres, format 3.2.8-1, products Corn".
std::string InWords(const JobSummary& summary);

}  // namespace kestrin::exporter
