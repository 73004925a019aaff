#include "export/boom/periods.h"

namespace kestrin::boom {

bool PeriodHolds(jobstore::GpsKey start, std::optional<jobstore::GpsKey> end,
                 jobstore::GpsKey time) {
  if (!end) return time >= start;
  if (time.gpsWeek == start.gpsWeek) {
    return time.gpsMsec >= start.gpsMsec && time.gpsMsec < end->gpsMsec;
  }
  return time > start && time < *end;
}

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
