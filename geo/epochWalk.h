#pragma once

#include <cstdint>

#include "base/runHost.h"

namespace kestrin::geo {

/// The one walk over a job's GPS rows, for every export, every preview and the extent. For
/// each row in turn: counts it, lets the host's events run, brings the reference locations
/// up to its time, and hands `visit(row, point)` the row and where the vehicle was, in UTM
/// metres. Returns how many rows there were; what the host's yield throws passes through.
///
/// Rows has a Row and a Next(Row&) that is false at their end, like jobstore::Query.
/// Offsets follows the reference locations: LocalOffsets, or WeekFirstOffsets.
template <class Rows, class Offsets, class Visit>
std::int64_t WalkEpochs(Rows& rows, Offsets& offsets, base::RunHost& host, Visit visit) {
  std::int64_t count = 0;
  for (typename Rows::Row row; rows.Next(row); ++count) {
    host.CountRow();
    host.Yield();
    offsets.AdvanceTo(row.time);
    visit(row, offsets.Plane().At(row.east, row.north));
  }
  return count;
}

}  // namespace kestrin::geo
