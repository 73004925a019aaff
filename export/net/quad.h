#pragma once

#include "export/net/track.h"

namespace kestrin::net {

/// The ground that a span works from one row to the next: the four-sided figure between the two
/// booms. Where these cross, or the ways of their ends do, it is the two triangles of a bow tie.
class Quad {
 public:
  Quad(const Boom& from, const Boom& to) : from_(from), to_(to) {}

  /// 1 when it has no dent and the ground lies to the left of the boom looked along from left
  /// to right, which it does when the vehicle drives forward; -1 when it has none and lies to
  /// the right; 0 for dents, bow ties and figures without ground.
  int Direction() const;

  double SquareMetres() const;

  /// Whether a point lies in it; on its outline, either.
  bool Holds(geo::UtmPoint point) const;

 private:
  Boom from_;
  Boom to_;
};

}  // namespace kestrin::net
