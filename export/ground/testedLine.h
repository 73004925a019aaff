#pragma once

#include <cstddef>
#include <span>

#include "export/ground/geos.h"
#include "export/ground/indexedPath.h"

namespace kestrin::ground {

/// How a closed line keeps clear of itself.
enum class Clearance {
  kNone,   ///< it crosses or touches itself, folds back on itself, or is no closed line
  kTight,  ///< it comes so close to itself that in another frame it may touch
  kWide,   ///< it is simple in every frame that it is projected to
};

/// A closed line that is tested while it is drawn: whether it has three segments at least,
/// each with finite ends and a length, none of which crosses or touches another but where
/// it follows on it. That is what makes the one ring of a polygon valid. The answer is
/// exact for the numbers given, in either frame.
///
/// Costs about 0.1 microseconds a point. Nothing fails; what is allocated stays.
class TestedLine {
 public:
  /// Begins a line of about so many points. `longest` is the length of its longest segment,
  /// from which is known how far projecting moves its parts against each other; 0 where
  /// nobody asks for more than kTight.
  void Restart(std::size_t points, double longest = 0);

  /// Draws on to a point, unless that is where the line is already. The last must not be
  /// the first point again: that is for Close().
  void Add(geo::UtmPoint point);
  void Close();

  Clearance Kept() const { return kept_; }
  const Line& Points() const { return path_.Points(); }

 private:
  void Draw(geo::UtmPoint point, bool closes);
  bool NewestIsClear(bool closes);
  bool IsClearOf(std::size_t segment);
  bool TurnIsClear(geo::UtmPoint from, geo::UtmPoint corner, geo::UtmPoint to);
  /// Notes whether a point comes so near to a segment.
  void Note(geo::UtmPoint point, geo::UtmPoint a, geo::UtmPoint b, double distance);

  IndexedPath path_;
  Clearance kept_ = Clearance::kNone;
  double farthest_ = 0;  // that any two parts must be from each other for kWide
};

}  // namespace kestrin::ground
