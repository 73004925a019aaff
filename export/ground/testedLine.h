#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

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

  /// Whether a line that is kTight is known to be simple in another frame as well, to which
  /// `there` takes a point, and which does no more to lines than to bend and to round them a
  /// little. Asks only the places where it is tight, which are few as a rule; false says nothing.
  template <class There>
  bool IsSimpleIn(There there) const {
    return kept_ == Clearance::kTight && knowsTight_ &&
           std::ranges::all_of(tight_, [&](const Pair& pair) {
             const auto& [a, b, c, d] = pair;
             return AreClear({there(a), there(b), there(c), there(d)}, b == c);
           });
  }

 private:
  /// The segments a-b and c-d, where the second may follow on the first.
  struct Pair {
    geo::UtmPoint a, b, c, d;
  };
  static constexpr std::size_t kMostTight = 256;

  void Draw(geo::UtmPoint point, bool closes);
  bool NewestIsClear(bool closes);
  bool IsClearOf(std::size_t segment);
  bool TurnIsClear(geo::UtmPoint from, geo::UtmPoint corner, geo::UtmPoint to);
  void NoteTight(const Pair& pair);
  static bool AreClear(const Pair& pair, bool isTurn);

  IndexedPath path_;
  Clearance kept_ = Clearance::kNone;
  double farthest_ = 0;  // that any two parts must be from each other for kWide; 0: not asked
  std::vector<Pair> tight_;
  bool knowsTight_ = false;  // all there are; nobody asks where there are more
};

}  // namespace kestrin::ground
