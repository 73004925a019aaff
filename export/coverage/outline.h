#pragma once

#include <cstddef>

#include "export/coverage/edge.h"
#include "export/coverage/indexedPath.h"

namespace kestrin::coverage {

/// One accepted GPS row as the coverage polygons see it: UTM metres, the yaw in
/// radians, clockwise from north.
struct SwathRow {
  geo::UtmPoint centre;
  geo::UtmPoint left;
  geo::UtmPoint right;
  double yaw = 0;

  /// The row of an implement `width` metres wide.
  static SwathRow Of(geo::UtmPoint centre, double yaw, double width);
};

/// The lists of the polygon being built, a point per accepted row each.
struct Outline {
  IndexedPath centres;
  Edge leftEdge{Edge::Side::kLeft};
  Edge rightEdge{Edge::Side::kRight};

  /// Begins a polygon with a row.
  void Begin(const SwathRow& row);
  void Append(const SwathRow& row);
  void DropNewest();

 private:
  void Add(const SwathRow& row, const SwathMotion& motion);
  SwathMotion MotionTo(const SwathRow& row) const;

  SwathRow newest_;
  double turned_ = 0;
};

/// Looks after the lists when a row has been appended. When the newest segment of
/// the vehicle's way meets an earlier one, returns the index of its end, counted
/// from 1: the polygon is to be cut there, and nothing else is done. The segment
/// before the newest is not asked, nor the one before that. Otherwise takes the loops
/// of sharp turns out of the edges and returns 0.
std::size_t CleanOutline(Outline& outline);

}  // namespace kestrin::coverage
