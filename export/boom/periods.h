#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "export/boom/timeline.h"
#include "jobstore/epochs.h"
#include "jobstore/job.h"

namespace kestrin::boom {

/// The GPS epochs of a timeline's periods, period after period, out of one scan of the job:
/// a query for each period would read the whole table for each, and a job can hold tens of
/// thousands. The scan begins with the object; job and entries must outlive it.
class Periods {
 public:
  using Row = jobstore::BoomEpochs::Row;

  Periods(jobstore::Job& job, const std::vector<TimelineEntry>& entries)
      : query_(job), entries_(entries) {}

  bool Prepared() const { return query_.Prepared(); }
  std::int32_t Result() const { return query_.Result(); }

  /// Reads the next epoch of an entry's period over `row` and returns true; false when the
  /// period has no more. Entries must be asked for in their order.
  bool Next(std::size_t entry, Row& row);

  /// What ended the rows, once the last period has been read: kDone in good order, also
  /// when there was no period to read any for.
  std::int32_t LastStep() const {
    return query_.LastStep() == jobstore::kRowReady ? jobstore::kDone : query_.LastStep();
  }

 private:
  bool Ahead() { return hasAhead_ = hasAhead_ || query_.Next(ahead_); }

  jobstore::Query<jobstore::BoomEpochs> query_;
  const std::vector<TimelineEntry>& entries_;
  Row ahead_;
  bool hasAhead_ = false;
};

/// The rows of one of the periods.
class PeriodRows {
 public:
  using Row = Periods::Row;

  PeriodRows(Periods& periods, std::size_t entry) : periods_(periods), entry_(entry) {}

  bool Next(Row& row) { return periods_.Next(entry_, row); }

 private:
  Periods& periods_;
  std::size_t entry_;
};

}  // namespace kestrin::boom
