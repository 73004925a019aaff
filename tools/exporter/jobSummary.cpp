#include "tools/exporter/jobSummary.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <exception>

#include "base/text.h"
#include "export/exportKinds.h"
#include "export/outcomeTexts.h"
#include "jobstore/changeCursor.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "jobstore/recordedFormat.h"
#include "shapefile/numberText.h"
#include "tools/exporter/noFiles.h"
#include "tools/exporter/setHost.h"

namespace kestrin::exporter {
namespace {

SummaryDay DayOf(jobstore::GpsKey key, const DateRules& dates) {
  const geo::LocalDateTime time = geo::LocalTimeOf(key, dates.zoneOffset);
  const std::chrono::year_month_day day(std::chrono::floor<std::chrono::days>(time));
  std::array<char, 16> iso{};
  std::snprintf(iso.data(), iso.size(), "%04d-%02u-%02u", static_cast<int>(day.year()),
                static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
  return {geo::DateText(time, dates.months), iso.data()};
}

void AddNames(const jobstore::ProductsRow& row, std::vector<std::string>& products) {
  for (const std::string& stored : row.names) {
    const std::string name(base::TrimmedBlanks(stored));
    const bool isNew = std::ranges::find(products, name) == products.end();
    if (!name.empty() && isNew) products.push_back(name);
  }
}

/// Walks the GPS rows for what their times tell; false when they cannot be queried.
bool ReadTimes(jobstore::Job& job, const DateRules& dates, SetHost& host, JobSummary& summary) {
  jobstore::Query<jobstore::Epochs<>> epochs(job);
  if (!epochs.Prepared()) {
    host.ShowMessage(exports::NotPreparedText(epochs.Result()));
    return false;
  }
  jobstore::ChangeCursor<jobstore::Products> products(job);
  jobstore::Epochs<>::Row row;
  while (epochs.Next(row)) {
    host.CountRow();
    host.Yield();
    bool changed = summary.epochs++ == 0;
    if (changed) summary.first = DayOf(row.time, dates);
    products.AdvanceTo(row.time, [&](const auto&) { changed = true; });
    if (changed) AddNames(products.Current(), summary.products);
  }
  if (summary.epochs > 0) summary.newest = DayOf(row.time, dates);
  summary.complete = epochs.LastStep() == jobstore::kDone;
  if (!summary.complete) {
    host.ShowMessage(std::string(exports::kNotReadToEnd) + std::to_string(summary.epochs) +
                     " epochs read, code " + std::to_string(epochs.LastStep()));
  }
  return true;
}

/// What the set of a kind would come to, without making it.
std::optional<double> FigureOf(const exports::ExportKind& kind, const std::string& jobPath,
                               SetHost& host, base::Crew& crew) {
  NoFiles files;
  exports::ExportRun run{host, files, {}, false, &crew};
  try {
    // Any name will do, but none would be no set.
    const exports::ExportOutcome outcome = kind.procedure("summary", jobPath, run);
    if (!outcome.figures.empty()) return outcome.figures.front().value;
  } catch (const std::exception& error) {
    host.ShowMessage(exports::NotMadeText(kind.name, error));
  }
  return std::nullopt;
}

std::string Days(const JobSummary& summary) {
  const std::string& first = summary.first.text;
  const std::string& newest = summary.newest.text;
  return first == newest ? first : first + " to " + newest;
}

}  // namespace

std::optional<JobSummary> Summarise(const std::string& jobPath, const DateRules& dates,
                                    SetHost& host, base::Crew& crew) {
  JobSummary summary;
  summary.jobPath = jobPath;
  {
    jobstore::Job job(jobPath, host);
    if (!job.IsOpen()) {
      host.ShowMessage(exports::NotOpenedText(job.Result()));
      return std::nullopt;
    }
    if (!ReadTimes(job, dates, host, summary)) return std::nullopt;
    summary.format = jobstore::RecordedFormat(job);
  }
  summary.metres = FigureOf(exports::kExportKinds[0], jobPath, host, crew);
  summary.acres = FigureOf(exports::kExportKinds[2], jobPath, host, crew);
  return summary;
}

std::string InWords(const JobSummary& summary) {
  std::string text = summary.jobPath + ": ";
  if (summary.epochs > 0) text += Days(summary) + ", ";
  text += std::to_string(summary.epochs) + " epochs";
  const auto add = [&](std::optional<double> figure, const char* unit) {
    if (figure) text.append(", ").append(shapefile::RoundedText(*figure, 2).View()).append(unit);
  };
  add(summary.metres, " meters");
  add(summary.acres, " acres");
  if (!summary.format.empty()) text += ", format " + summary.format;
  const char* before = ", products ";
  for (const std::string& product : summary.products) {
    text += before + product;
    before = ", ";
  }
  return text;
}

}  // namespace kestrin::exporter
