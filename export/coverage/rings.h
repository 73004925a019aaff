#pragma once

#include <span>
#include <vector>

#include "base/runHost.h"
#include "export/coverage/polygonBuilder.h"
#include "export/ground/geos.h"
#include "export/ground/simpleLine.h"
#include "export/ground/sweep.h"
#include "geo/workingPlane.h"

namespace kestrin::coverage {

/// The closed line around one coverage polygon, as it is written. No two neighbours are
/// equal, in either frame.
struct Ring {
  ground::Line metres;                 ///< UTM
  std::vector<geo::GeoPoint> degrees;  ///< the same points as written

  /// The area in acres of the plane's square metres, whichever way the ring runs.
  double Acres() const;
};

/// Makes the rings of a job's polygons.
///
/// A ring leads up the left edge, over to the right edge's end, back down the right edge,
/// and to its first point once more. It runs clockwise when the vehicle drives forward, as
/// readers of shapefiles want it of outer rings.
///
/// Such a ring crosses itself where the vehicle stands and jitters, where the heading of a
/// long boom wavers, where a turn is tighter than half the boom. No GIS takes it then,
/// and its area is not that of the ground. So a ring that crosses or touches itself, in
/// metres or in degrees, gives way to the line around the ground swept between its rows:
/// one line, clockwise, of the same ground but for necks and slits of a millimetre. One
/// without any ground, as that of an implement without width, stays as it is.
///
/// Yields to the host in between, whose base::RunCancelled passes. Nothing else fails.
class RingMaker {
 public:
  RingMaker(const geo::WorkingPlane& plane, base::RunHost& host) : plane_(plane), host_(host) {}

  /// The ring of a polygon; an empty one when its rows have not the three distinct points
  /// that a polygon needs. Points with NaN or infinite coordinates are in it only when there
  /// is no ground without them.
  Ring Of(const PolygonBuilder::Edges& edges);

 private:
  Ring Projected(const ground::Line& line);
  /// Whether it is in metres, in degrees, and for who projects these again.
  bool IsSimple(const Ring& ring);
  /// The line with its small loops cut off, if it is the ring then; else an empty one.
  Ring Unfolded(const ground::Line& line, const ground::Sweep& sweep);
  /// A ring of ground given by its booms as seen from `origin`.
  Ring Mended(const std::vector<ground::Boom>& booms, const ground::Sweep& sweep,
              geo::UtmPoint origin);

  const geo::WorkingPlane& plane_;
  base::RunHost& host_;
  ground::SimpleLines lines_;
};

}  // namespace kestrin::coverage
