#include "export/boomPeriods.h"

namespace kestrin {

bool BoomPeriods::Next(std::size_t entry, EpochRow& row) {
  const GpsKey start = entries_[entry].time;
  std::optional<GpsKey> end;
  if (entry + 1 < entries_.size()) end = entries_[entry + 1].time;
  while (Ahead() && !(end && ahead_.time >= *end)) {
    hasAhead_ = false;
    if (!BoomEpochs::Takes(start, end, ahead_.time)) continue;
    row = ahead_;
    return true;
  }
  return false;
}

}  // namespace kestrin
