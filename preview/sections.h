#pragma once

#include "geo/heading.h"
#include "geo/points.h"
#include "jobstore/changeCursor.h"
#include "jobstore/queries.h"

namespace kestrin::preview {

/// The implement as the previews follow it: the first one from the start, every later one,
/// the last included, from its own time on.
using ImplementCursor = jobstore::ChangeCursor<jobstore::Implements>;

/// Metres: the sum of the positive section widths.
inline double SwathWidth(const jobstore::ImplementRow& implement) {
  double width = 0;
  for (const jobstore::Section& section : implement.sections) {
    if (section.width > 0) width += section.width;
  }
  return width;
}

/// Calls `onSection(right, left)` with the two ends, in UTM metres, of each section of positive
/// width: square to the heading of `yaw` radians, clockwise from north. Offsets are added as
/// stored, not turned with the heading.
template <class OnSection>
void ForEachSection(const jobstore::ImplementRow& implement, geo::UtmPoint vehicle, double yaw,
                    OnSection onSection) {
  const geo::Heading heading(yaw);
  for (const jobstore::Section& section : implement.sections) {
    if (!(section.width > 0)) continue;
    const geo::UtmPoint centre{vehicle.easting + section.xOffset,
                               vehicle.northing + section.yOffset};
    const double half = section.width / 2;
    onSection(heading.RightOf(centre, half), heading.LeftOf(centre, half));
  }
}

}  // namespace kestrin::preview
