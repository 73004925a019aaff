#pragma once

#include <cstddef>

#include "export/ground/geos.h"
#include "export/ground/indexedPath.h"

namespace kestrin::coverage {

/// Looks for a cut in the polygon being built, once for each row taken into it.
///
/// When the newest segment of the outline meets an earlier one of the same polygon, ends
/// included, the vehicle has crossed its own track: `count` becomes `endIndex`, the row at
/// which the next polygon must begin, and that row is taken out of the outline and both
/// edges again. The segment just before the newest is not asked, as the two touch in any
/// case. Otherwise `count` becomes 0.
///
/// Rows are counted from 1 over the whole job: the polygon's first is `startIndex`, its
/// newest `endIndex`, and each of the three lines holds a point for each of these. UTM
/// metres; NaN and infinite points meet nothing.
void CleanOutline(ground::IndexedPath& outline, ground::Line& leftEdge, ground::Line& rightEdge,
                  std::size_t startIndex, std::size_t endIndex, std::size_t& count);

}  // namespace kestrin::coverage
