#pragma once

#include <cstdint>
#include <vector>

#include "base/runHost.h"
#include "export/net/track.h"
#include "geo/box.h"

namespace kestrin::net {

/// A short length of the strip that a span lays over the ground.
///
/// A regular run drives one way: each of its quads has no dent, all lie on the same side of
/// their booms, and its booms turn by less than half a right angle. Any other quad is a run of
/// its own, which is not regular.
struct Run {
  std::uint32_t first = 0;  ///< from this step ...
  std::uint32_t last = 0;   ///< ... to this one, as Runs counts them
  Span span;
  bool regular = false;
  /// Whether the strip goes on: the run in front of this one in the list, or behind it, lies
  /// on the other side of the boom that the two have in common.
  bool goesOnBefore = false;
  bool goesOnAfter = false;
  geo::Box box;
};

/// All ground of a job, cut into runs: strip by strip, each in the order of the way.
class Runs {
 public:
  /// Yields in between. The track must outlive it.
  Runs(const Track& track, base::RunHost& host);

  const std::vector<Run>& All() const { return all_; }

  /// The boom at a step of a run.
  Boom At(std::uint32_t step, Span span) const { return track_.At(rows_[step], span); }

  /// The ground swept: every pass counts, of a bow tie both triangles.
  double SweptSquareMetres() const { return swept_; }

 private:
  const Track& track_;
  std::vector<Run> all_;
  std::vector<std::uint32_t> rows_;  // of the steps
  double swept_ = 0;
};

}  // namespace kestrin::net
