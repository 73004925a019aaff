#pragma once

#include <cstddef>
#include <vector>

#include "base/runHost.h"
#include "jobstore/gpsKey.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin::coverage {

/// The implement's width over GPS time, in metres, as the coverage polygons take it.
///
/// Widths accumulate: each row of the implement table adds its sections' widths to the
/// width before. Two rows of 10 m make 10 m, then 20 m. This is kept on purpose: sets
/// have always been made so, and those who read them allow for it.
///
/// Nothing fails. Sections of no, negative or NaN width add nothing; an infinite one makes
/// the width infinite from its row on.
class WidthTimeline {
 public:
  /// Adds the implement attached next. The first always makes an entry, a later one
  /// only when it changes the width.
  void Add(const jobstore::ImplementRow& implement);

  /// The width at a GPS row's time: of the last entry not later, of the first entry
  /// before that, and 0 without entries. Times must not go back.
  double At(jobstore::GpsKey time);

 private:
  struct Entry {
    jobstore::GpsKey time;
    double width = 0;
  };
  std::vector<Entry> entries_;
  std::size_t inForce_ = 0;
};

/// Reads a job's timeline.
/// Failure: a table that cannot be queried is told to the host, and every width is 0.
WidthTimeline ReadWidths(jobstore::Job& job, base::RunHost& host);

}  // namespace kestrin::coverage
