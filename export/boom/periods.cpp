#include "export/boom/periods.h"

#include <optional>

namespace kestrin::boom {
namespace {

/// Whether a period of the timeline, from `start` up to, not including, `end`, holds a
/// time; without an end, all times from `start` on.
///
/// A period that ends in a later week keeps the bound gpsMsec < end.gpsMsec on the rows of
/// its own first week too, so those at or after that millisecond belong to no period. This
/// is how the sets have always been cut; downstream tools rely on it.
bool PeriodHolds(jobstore::GpsKey start, std::optional<jobstore::GpsKey> end,
                 jobstore::GpsKey time) {
  if (!end) return time >= start;
  if (time.gpsWeek == start.gpsWeek) {
    return time.gpsMsec >= start.gpsMsec && time.gpsMsec < end->gpsMsec;
  }
  return time > start && time < *end;
}

}  // namespace

bool Periods::Next(std::size_t entry, Row& row) {
  const jobstore::GpsKey start = entries_[entry].time;
  std::optional<jobstore::GpsKey> end;
  if (entry + 1 < entries_.size()) end = entries_[entry + 1].time;
  while (Ahead() && !(end && ahead_.time >= *end)) {
    hasAhead_ = false;
    if (!PeriodHolds(start, end, ahead_.time)) continue;
    row = ahead_;
    return true;
  }
  return false;
}

}  // namespace kestrin::boom
