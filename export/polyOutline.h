#pragma once

#include <cstddef>

#include "export/polyEdge.h"
#include "export/polySegments.h"

namespace kestrin {

/// One accepted GPS row as the coverage polygons see it: UTM metres, the yaw in
/// radians, clockwise from north.
struct SwathRow {
  UtmPoint centre;
  UtmPoint left;
  UtmPoint right;
  double yaw = 0;

  /// The row of an implement `width` metres wide.
  static SwathRow Of(UtmPoint centre, double yaw, double width);
};

/// The lists of the polygon being built, a point per accepted row each.
struct Outline {
  SegmentTrail centres;
  SwathEdge leftEdge{SwathEdge::Side::kLeft};
  SwathEdge rightEdge{SwathEdge::Side::kRight};

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

}  // namespace kestrin
