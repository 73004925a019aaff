#pragma once

#include <cstddef>

#include "export/coverage/edge.h"
#include "export/coverage/indexedPath.h"

namespace kestrin::coverage {

/// Cleans up the polygon being built, once for each row taken into it.
///
/// First it looks for a cut. When the newest segment of the outline meets an earlier one
/// of the same polygon, ends included, the vehicle has crossed its own track: `count`
/// becomes `endIndex`, the row at which the next polygon must begin, and nothing else is
/// done. The segment just before the newest is not asked, as the two touch in any case.
///
/// Otherwise `count` becomes 0, and the folds that the newest row closed are taken out of
/// the edges.
///
/// Rows are counted from 1 over the whole job: the polygon's first is `startIndex`, its
/// newest `endIndex`, and `outline` holds a point for each of these. The edges hold as
/// many, less those of folds. UTM metres; NaN and infinite points meet nothing.
void CleanOutline(IndexedPath& outline, Edge& leftEdge, Edge& rightEdge, std::size_t startIndex,
                  std::size_t endIndex, std::size_t& count);

}  // namespace kestrin::coverage
