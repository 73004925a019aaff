#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "geo/workingPlane.h"

namespace kestrin::geo {

/// Local offsets the way the boom sections follow a job's reference locations:
/// week by week first, then millisecond by millisecond.
///
/// An epoch of a later week than the location in force takes every location up to
/// the end of its own week at once, also those of that week that lie after it;
/// only within the week of the location in force do milliseconds count. Boom sets
/// have always been placed so, and stay comparable with those made before.
class WeekFirstOffsets {
 public:
  /// The reference locations in time order, one at least.
  explicit WeekFirstOffsets(std::vector<jobstore::ReferenceRow> references)
      : references_(std::move(references)), plane_(references_.front()) {}

  const WorkingPlane& Plane() const { return plane_; }
  const jobstore::ReferenceRow& Reference() const { return references_[current_]; }

  /// Moves on to an epoch's time, projecting each reference location passed.
  void AdvanceTo(jobstore::GpsKey time);

 private:
  bool HasNext() const { return current_ + 1 < references_.size(); }
  jobstore::GpsKey NextTime() const { return references_[current_ + 1].time; }
  void TakeNext() { plane_.MoveOrigin(references_[++current_]); }

  std::vector<jobstore::ReferenceRow> references_;
  std::size_t current_ = 0;
  WorkingPlane plane_;
};

}  // namespace kestrin::geo
