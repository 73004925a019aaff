#pragma once

#include <utility>

#include "jobstore/gpsKey.h"
#include "jobstore/job.h"

namespace kestrin::jobstore {

/// When the last row of a change table comes into force.
enum class LastChange {
  kApplies,       ///< from its own time on, like every other row
  kNeverApplies,  ///< never, unless it is the only row (the point export's implement)
};

/// A change table walked forward beside the GPS rows: the row in force and the one
/// after it. A change applies from its own time key on; the first row is in force
/// from the start, also for GPS rows before it.
/// Failure: an empty table, or one that cannot be queried, leaves the row at its empty value.
///
/// A row that comes up next is read over what the old next row's place held, so
/// text columns that are empty in it keep the text that stood there.
template <class Q, LastChange last = LastChange::kApplies>
class ChangeCursor {
 public:
  using Row = typename Q::Row;

  explicit ChangeCursor(Job& job)
      : query_(job), hasCurrent_(query_.Next(current_)), exhausted_(!query_.Next(next_)) {}

  bool Prepared() const { return query_.Prepared(); }
  std::int32_t Result() const { return query_.Result(); }

  /// Whether the table has any row.
  bool HasCurrent() const { return hasCurrent_; }
  const Row& Current() const { return current_; }

  /// Brings the changes up to a GPS row's time into force, oldest first, calling
  /// `onChange(row)` for each. Times must not go back.
  template <class OnChange>
  void AdvanceTo(GpsKey time, OnChange onChange) {
    while (!exhausted_ && next_.time <= time) {
      Row taken = next_;
      exhausted_ = !query_.Next(next_);
      if (exhausted_ && last == LastChange::kNeverApplies) return;
      current_ = std::move(taken);
      onChange(current_);
    }
  }
  void AdvanceTo(GpsKey time) {
    AdvanceTo(time, [](const Row&) {});
  }

 private:
  Query<Q> query_;
  Row current_{};
  Row next_{};
  // Behind the rows, which their first values are read into.
  bool hasCurrent_;
  bool exhausted_;
};

}  // namespace kestrin::jobstore
