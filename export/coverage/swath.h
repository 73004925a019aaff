#pragma once

#include "export/coverage/edge.h"
#include "export/coverage/indexedPath.h"

namespace kestrin::coverage {

/// One GPS row as the coverage polygons see it: the middle of the implement and its two
/// ends in UTM metres, the yaw in radians, clockwise from north.
struct SwathRow {
  geo::UtmPoint centre;
  geo::UtmPoint left;
  geo::UtmPoint right;
  double yaw = 0;

  /// The row of an implement `width` metres wide; both ends are the centre when that is
  /// 0. NaN and infinite values are carried into the points they make.
  static SwathRow Of(geo::UtmPoint centre, double yaw, double width);
};

/// The rows of the polygon being built, as the three lines they draw.
class Swath {
 public:
  IndexedPath outline;  ///< the way of the middle, a point a row
  Edge leftEdge{Edge::Side::kLeft};
  Edge rightEdge{Edge::Side::kRight};

  /// Begins a polygon with a row.
  void Begin(const SwathRow& row);
  void Append(const SwathRow& row);
  /// Takes the last row appended back; Begin() must follow.
  void DropNewest();

  /// The row begun or appended last.
  const SwathRow& Newest() const { return newest_; }

 private:
  void Add(const SwathRow& row, const SwathMotion& motion);
  SwathMotion MotionTo(const SwathRow& row) const;

  SwathRow newest_;
  double turned_ = 0;
};

}  // namespace kestrin::coverage
