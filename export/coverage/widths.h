#pragma once

#include <string>
#include <vector>

#include "jobstore/gpsKey.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin::coverage {

/// The width the coverage polygons take for the implement, over GPS time, in metres.
///
/// Widths add up over the rows of the implement table: each row's sections come on
/// top of what stood before. The sets have always been made so, and those who read
/// them correct for it.
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

/// Reads a job's timeline. When the table cannot be read the timeline is empty and
/// `handle` tells why; otherwise `handle` is not negative.
WidthTimeline ReadWidths(jobstore::Job& job, std::int32_t& handle);

}  // namespace kestrin::coverage
