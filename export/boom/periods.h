#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "export/boom/timeline.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin::boom {

/// The GPS epochs of a timeline's periods, period after period: the rows that
/// BoomEpochs selects for each, out of one scan of the job. The scan begins with
/// the object; job and entries must outlive it.
class Periods {
 public:
  Periods(jobstore::Job& job, const std::vector<TimelineEntry>& entries)
      : query_(job), entries_(entries) {}

  bool Prepared() const { return query_.Prepared(); }
  std::int32_t Handle() const { return query_.Handle(); }

  /// Reads the next epoch of an entry's period over `row` and returns true; false
  /// when the period has no more. Entries must be asked for in their order.
  bool Next(std::size_t entry, jobstore::EpochRow& row);

  /// What ended the rows, once the last period has been read: kDone in good order,
  /// also when there was no period to read any for.
  std::int32_t LastStep() const {
    return query_.LastStep() == jobstore::sqliteDefs::kRowReady ? jobstore::sqliteDefs::kDone
                                                                : query_.LastStep();
  }

 private:
  bool Ahead() { return hasAhead_ = hasAhead_ || query_.Next(ahead_); }

  jobstore::Query<jobstore::BoomEpochs> query_;
  const std::vector<TimelineEntry>& entries_;
  jobstore::EpochRow ahead_;
  bool hasAhead_ = false;
};

}  // namespace kestrin::boom
