#include "export/boom/periods.h"

#include <algorithm>

namespace kestrin::boom {
namespace {

using jobstore::ScannedEpochs;

bool IsAtOrBehind(const ScannedEpochs::Row& row, jobstore::GpsKey time) {
  return row.week > time.gpsWeek || (row.week == time.gpsWeek && row.msec >= time.gpsMsec);
}

/// Whether the query of the period selects the row: its text, term by term.
bool PeriodHolds(jobstore::GpsKey start, std::optional<jobstore::GpsKey> end,
                 const ScannedEpochs::Row& row) {
  if (!end) return IsAtOrBehind(row, start);
  if (row.week == start.gpsWeek) return row.msec >= start.gpsMsec && row.msec < end->gpsMsec;
  return row.week > start.gpsWeek &&
         (row.week < end->gpsWeek || (row.week == end->gpsWeek && row.msec < end->gpsMsec));
}

bool InOrder(const std::vector<TimelineEntry>& entries) {
  return std::is_sorted(entries.begin(), entries.end(),
                        [](const auto& one, const auto& other) { return one.time < other.time; });
}

}  // namespace

Periods::Periods(jobstore::Job& job, const std::vector<TimelineEntry>& entries)
    : job_(job),
      entries_(entries),
      scan_(job),
      byQueries_(!InOrder(entries) || scan_.ComparesAsText(ScannedEpochs::kWeek) ||
                 scan_.ComparesAsText(ScannedEpochs::kMsec)) {
  if (byQueries_) job.Library().ShareSteps();
}

bool Periods::Next(std::size_t entry, Row& row) {
  return byQueries_ ? NextOfQuery(entry, row) : NextOfScan(entry, row);
}

bool Periods::NextOfScan(std::size_t entry, Row& row) {
  const jobstore::GpsKey start = entries_[entry].time;
  const std::optional<jobstore::GpsKey> end = EndOf(entry);
  while (Ahead() && !(end && IsAtOrBehind(ahead_, *end))) {
    hasAhead_ = false;
    if (!PeriodHolds(start, end, ahead_)) continue;
    row = ahead_;
    return true;
  }
  return false;
}

bool Periods::Ahead() {
  hasAhead_ = hasAhead_ || scan_.Next(ahead_);
  lastStep_ = scan_.LastStep();
  return hasAhead_;
}

bool Periods::NextOfQuery(std::size_t entry, Row& row) {
  if (queried_ != entry) {
    // What one could not read, none behind it is asked for.
    if (LastStep() != jobstore::kDone) return false;
    const std::optional<jobstore::GpsKey> end = EndOf(entry);
    if (end) {
      query_.emplace(job_, entries_[entry].time, *end);
    } else {
      query_.emplace(job_, entries_[entry].time);
    }
    queried_ = entry;
  }
  const bool more = query_->Next(row);
  lastStep_ = query_->LastStep();
  return more;
}

std::optional<jobstore::GpsKey> Periods::EndOf(std::size_t entry) const {
  if (entry + 1 == entries_.size()) return std::nullopt;
  return entries_[entry + 1].time;
}

}  // namespace kestrin::boom
