#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "geo/gpsTime.h"
#include "tools/exporter/commandLine.h"

namespace kestrin::exporter {

/// What is to be done about one job file.
struct JobPlan {
  std::string jobPath;
  /// Of its sets, without the kinds' suffixes.
  std::string basePath;
  /// GPS rows, for the progress bar.
  std::int64_t rows = 0;
  /// Why none of its sets can be made; empty when nothing is known against it.
  std::string obstacle;
};

/// What jobs are dated by.
struct DateRules {
  std::int32_t zoneOffset = 0;  ///< minutes east of Greenwich
  geo::MonthNames months;
};

/// Looks into a job and finds where its sets go: the base path asked for, or
/// DIR/name/date/name_date after the job's file-safe name and the date of its newest
/// GPS row. A summary's go nowhere.
JobPlan PlanJob(const std::string& jobPath, const ExportOptions& options, const DateRules& dates);

/// Of jobs whose sets would have the same names, only the first keeps them.
void RefuseSharedTargets(std::vector<JobPlan>& plans);

}  // namespace kestrin::exporter
