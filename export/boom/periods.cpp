#include "export/boom/periods.h"

namespace kestrin::boom {

bool Periods::Next(std::size_t entry, jobstore::EpochRow& row) {
  const jobstore::GpsKey start = entries_[entry].time;
  std::optional<jobstore::GpsKey> end;
  if (entry + 1 < entries_.size()) end = entries_[entry + 1].time;
  while (Ahead() && !(end && ahead_.time >= *end)) {
    hasAhead_ = false;
    if (!jobstore::BoomEpochs::Takes(start, end, ahead_.time)) continue;
    row = ahead_;
    return true;
  }
  return false;
}

}  // namespace kestrin::boom
