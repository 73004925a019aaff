#pragma once

#include <span>
#include <vector>

#include "base/runHost.h"
#include "export/coverage/polygonBuilder.h"
#include "export/ground/sweep.h"
#include "export/ground/testedLine.h"
#include "geo/workingPlane.h"

namespace kestrin::coverage {

/// The closed line around one coverage polygon, in UTM metres; empty when its rows have not
/// the three distinct points that a polygon needs.
using Ring = std::span<const geo::UtmPoint>;

/// The area of a ring in acres of the plane's square metres, whichever way it runs.
double AcresIn(Ring ring);

/// Makes the rings of a job's polygons.
///
/// A ring leads up the left edge, over to the right edge's end, back down the right edge,
/// and to its first point once more. It runs clockwise when the vehicle drives forward, as
/// readers of shapefiles want it of outer rings. No two neighbours are equal.
///
/// Such a ring crosses itself where the vehicle stands and jitters, where the heading of a
/// long boom wavers, where a turn is tighter than half the boom. No GIS takes it then,
/// and its area is not that of the ground. So a ring that crosses or touches itself, in
/// metres or in degrees, gives way to another of the same ground, which does not: its small
/// loops are cut off, where that changes less than three thousandths of the job's ground in
/// all; else it is the one line around the union of what was swept from row to row,
/// clockwise. A ring without any ground, as that of an implement without width, stays as it
/// is.
///
/// Yields to the host in between, whose base::RunCancelled passes. Nothing else fails.
class RingMaker {
 public:
  RingMaker(const geo::WorkingPlane& plane, base::RunHost& host) : plane_(plane), host_(host) {}

  /// The ring of a polygon, which lasts until the next is made. One that gives way has no
  /// points with coordinates that are NaN, infinite or beyond any place on Earth, unless
  /// there is no ground without them.
  Ring Of(const PolygonBuilder::Edges& edges);

 private:
  Ring Repaired(const PolygonBuilder::Edges& edges);
  // Each puts a ring in place of the one drawn, unless it finds none that is fit.
  bool Unfold(const ground::Sweep& sweep);
  bool Mend(const std::vector<ground::Boom>& booms, const ground::Sweep& sweep,
            geo::UtmPoint origin);
  /// Whether the ring in place is simple in every frame. Begins it where the one drawn does.
  bool IsFit();
  /// Whether a ring is simple as it is written, and in the metres of who projects it again.
  bool IsSimpleInDegrees(Ring ring, bool andBack);

  const geo::WorkingPlane& plane_;
  base::RunHost& host_;
  ground::TestedLine drawn_;
  ground::TestedLine tested_;
  ground::Line ring_;  // in place of the one drawn
  double saved_ = 0;   // square metres that may be wrong yet
};

}  // namespace kestrin::coverage
