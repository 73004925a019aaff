#include "export/ground/strip.h"

#include <algorithm>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {

Strip::Strip(const Boom& from, const Boom& to) {
  if (SegmentsCross(from.left, from.right, to.left, to.right)) {
    const geo::UtmPoint pivot = MeetingPoint(from.left, from.right, to.left, to.right);
    Add({from.left, to.left, pivot});
    Add({to.right, from.right, pivot});
  } else if (SegmentsCross(from.left, to.left, from.right, to.right)) {
    const geo::UtmPoint pivot = MeetingPoint(from.left, to.left, from.right, to.right);
    Add({from.left, pivot, from.right});
    Add({pivot, to.left, to.right});
  } else {
    Add({from.left, to.left, to.right, from.right});
  }
}

void Strip::Add(std::initializer_list<geo::UtmPoint> corners) {
  Patch& patch = patches_[count_];
  std::ranges::copy(corners, patch.points.begin());
  patch.points[corners.size()] = *corners.begin();
  patch.count = corners.size() + 1;
  // Clockwise is forward.
  patch.squareMetres = -SignedArea(patch.Line());
  if (patch.squareMetres != 0) ++count_;
}

}  // namespace kestrin::ground
