#pragma once

#include <cstdint>

#include "geo/workingPlane.h"
#include "jobstore/changeCursor.h"
#include "jobstore/queries.h"

namespace kestrin::geo {

/// Turns a job's local offsets into positions, following its reference locations
/// in GPS time: a location is in force from exactly its own time key on, the first
/// from the start. Q is References or ReferencesWithAltitude.
/// Failure: Prepared() and HasReference() say whether there are positions at all.
template <class Q>
class LocalOffsets {
 public:
  explicit LocalOffsets(jobstore::Job& job) : references_(job), plane_(references_.Current()) {}

  bool Prepared() const { return references_.Prepared(); }
  std::int32_t Result() const { return references_.Result(); }

  /// Whether the job has a reference location at all; without one there are no
  /// positions and nothing is exported.
  bool HasReference() const { return references_.HasCurrent(); }

  const typename Q::Row& Reference() const { return references_.Current(); }
  const WorkingPlane& Plane() const { return plane_; }

  /// Moves on to a GPS row's time, projecting each reference location passed.
  void AdvanceTo(jobstore::GpsKey time) {
    references_.AdvanceTo(time,
                          [this](const jobstore::ReferenceRow& row) { plane_.MoveOrigin(row); });
  }

 private:
  jobstore::ChangeCursor<Q> references_;
  WorkingPlane plane_;
};

}  // namespace kestrin::geo
