#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "base/crew.h"
#include "base/loopYield.h"
#include "export/coverage/polygonBuilder.h"
#include "export/ground/sweep.h"
#include "export/ground/testedLine.h"
#include "geo/utmProjection.h"

namespace kestrin::coverage {

/// The closed line around one coverage polygon, in UTM metres; empty when its rows have not
/// the three distinct points that a polygon needs.
using Ring = std::span<const geo::UtmPoint>;

/// The area of a ring in acres of the plane's square metres, whichever way it runs.
double AcresIn(Ring ring);

/// The ring of one polygon.
///
/// It leads up the left edge, over to the right edge's end, back down the right edge, and to its
/// first point once more. It runs clockwise when the vehicle drives forward, as readers of
/// shapefiles want it of outer rings. No two neighbours are equal.
///
/// Such a ring crosses itself where the vehicle stands and jitters, where the heading of a
/// long boom wavers, where a turn is tighter than half the boom. No GIS takes it then,
/// and its area is not that of the ground. So a ring that crosses or touches itself, in
/// metres or in degrees, gives way to another of the same ground, which does not: its small
/// loops are cut off, where that changes less than three thousandths of the job's ground in
/// all; else it is the one line around the union of what was swept from row to row,
/// clockwise. A ring without any ground, as that of an implement without width, stays as it
/// is.
class PolygonRing : public base::Crew::Task {
 public:
  /// `yield` is called in between, and what it throws passes.
  /// Failure: Do() throws ground::GeometryError when the geometry library does not start.
  PolygonRing(std::int16_t zone, std::function<void()> yield)
      : projection_(zone), yield_(std::move(yield)) {}

  /// Draws the ring of a polygon. `saved` are the square metres that may be wrong yet for the
  /// polygons so far, and then for those to come.
  void Draw(const PolygonBuilder::Edges& edges, double& saved);

  /// Unites what was swept, where that is needed.
  void Do() override;

  /// The ring, once all that is done. One that has given way has no points with coordinates
  /// that are NaN, infinite or beyond any place on Earth, unless there is no ground without them.
  Ring Points() const { return shown_; }

  bool IsEmpty() const { return shown_.empty(); }
  bool IsFull() const { return !IsEmpty(); }
  void Clear() { shown_ = {}; }

 private:
  /// The booms by which ground is known, seen from `origin`, and what they swept.
  struct Ground {
    geo::UtmPoint origin;
    std::vector<ground::Boom> booms;
    ground::Sweep sweep;
  };

  // Each puts a ring in place of the one drawn, unless it finds none that is fit.
  bool Unfold(const ground::Sweep& sweep, double& saved);
  bool Unite(const Ground& ground);
  /// Whether a ring is simple in every frame. Begins it where the one drawn does.
  bool IsFit(ground::Line ring);
  /// Whether degrees are known to do no more to a line than to bend it a little: it is no more
  /// than 100 km across, at 0 to 1,000 km of easting, far from the poles and from where
  /// longitudes begin anew.
  bool DegreesOnlyBend(Ring line) const;
  /// Whether a line is simple as it is written, and in the metres of who projects it again.
  bool IsSimpleInDegrees(const ground::TestedLine& line, bool andBack);

  geo::UtmProjection projection_;
  base::LoopYield yield_;
  ground::TestedLine drawn_;
  ground::TestedLine tested_;
  ground::Line ring_;             // in place of the one drawn
  std::optional<Ground> unmade_;  // that is to be united
  Ring shown_;
};

}  // namespace kestrin::coverage
