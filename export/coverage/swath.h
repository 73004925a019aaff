#pragma once

#include "export/ground/geos.h"
#include "export/ground/indexedPath.h"

namespace kestrin::coverage {

/// One GPS row as the coverage polygons see it: the middle of the implement and its two
/// ends, in UTM metres.
struct SwathRow {
  geo::UtmPoint centre;
  geo::UtmPoint left;
  geo::UtmPoint right;

  /// The row of an implement `width` metres wide with `yaw` in radians, clockwise from
  /// north; both ends are the centre when the width is 0. NaN and infinite values are
  /// carried into the points they make.
  static SwathRow Of(geo::UtmPoint centre, double yaw, double width);
};

/// The rows of the polygon being built, as the three lines they draw: the way of the
/// middle and those of the two ends, a point a row each.
struct Swath {
  ground::IndexedPath outline;
  ground::Line leftEdge;
  ground::Line rightEdge;

  void Append(const SwathRow& row);
};

}  // namespace kestrin::coverage
