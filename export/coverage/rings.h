#pragma once

#include <atomic>
#include <functional>

#include "export/coverage/polygonBuilder.h"
#include "export/coverage/polygonRing.h"
#include "export/exportRun.h"
#include "export/inOrder.h"
#include "geo/workingPlane.h"

namespace kestrin::coverage {

/// Makes the rings of a job's polygons one after another, the same by one thread or several.
class RingMaker {
 public:
  /// `sink` gets each ring in order, which lasts for that call; those of polygons that have none
  /// are left out. Yields to the run's host, unless several threads
  /// are at work.
  RingMaker(const geo::WorkingPlane& plane, exports::ExportRun& run,
            std::function<void(Ring)> sink);
  ~RingMaker() { ends_ = true; }
  RingMaker(const RingMaker&) = delete;
  RingMaker& operator=(const RingMaker&) = delete;

  void Add(const PolygonBuilder::Edges& edges);

  /// After the last polygon.
  void Finish() { rings_.Finish(); }

 private:
  std::atomic<bool> ends_ = false;
  double saved_ = 0;  // square metres that may be wrong yet
  exports::InOrder<PolygonRing> rings_;
};

}  // namespace kestrin::coverage
