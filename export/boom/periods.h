#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "export/boom/timeline.h"
#include "jobstore/epochs.h"
#include "jobstore/job.h"
#include "jobstore/periodEpochs.h"

namespace kestrin::boom {

/// The GPS epochs of a timeline's periods, period after period: those that the query of each
/// (jobstore::PeriodEpochs) selects. They come out of one scan of the job, as a query would read
/// the whole table for each, and a job can hold tens of thousands. Only for keys that a scan
/// does not pass in the order of the periods, as no console writes them, are the queries run;
/// together they may take no more steps than one. The scan begins with the object; job and
/// entries must outlive it.
class Periods {
 public:
  using Row = jobstore::ScannedEpochs::Row;

  Periods(jobstore::Job& job, const std::vector<TimelineEntry>& entries);

  bool Prepared() const { return scan_.Prepared(); }
  std::int32_t Result() const { return scan_.Result(); }

  /// Reads the next epoch of an entry's period over `row` and returns true; false when the
  /// period has no more. Entries must be asked for in their order.
  bool Next(std::size_t entry, Row& row);

  /// What ended the rows, once the last period has been read: kDone in good order, also
  /// when there was no period to read any for.
  std::int32_t LastStep() const {
    return lastStep_ == jobstore::kRowReady ? jobstore::kDone : lastStep_;
  }

 private:
  bool NextOfScan(std::size_t entry, Row& row);
  bool NextOfQuery(std::size_t entry, Row& row);
  bool Ahead();
  std::optional<jobstore::GpsKey> EndOf(std::size_t entry) const;

  jobstore::Job& job_;
  const std::vector<TimelineEntry>& entries_;
  jobstore::Query<jobstore::ScannedEpochs> scan_;
  Row ahead_;
  bool hasAhead_ = false;
  bool byQueries_;
  std::optional<jobstore::Query<jobstore::PeriodEpochs>> query_;
  std::optional<std::size_t> queried_;
  std::int32_t lastStep_ = jobstore::kRowReady;
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
