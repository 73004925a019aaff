#include "export/coverage/outline.h"

#include "export/ground/planeGeometry.h"

namespace kestrin::coverage {
namespace {

bool MeetsItself(ground::IndexedPath& outline) {
  const geo::UtmPoint a = outline[outline.Size() - 2];
  const geo::UtmPoint b = outline.Back();
  return outline.AnyNearNewest(
      0, [&](std::size_t i) { return ground::SegmentsMeet(a, b, outline[i], outline[i + 1]); });
}

}  // namespace

void CleanOutline(ground::IndexedPath& outline, ground::Line& leftEdge, ground::Line& rightEdge,
                  std::size_t startIndex, std::size_t endIndex, std::size_t& count) {
  count = endIndex - startIndex > 2 && MeetsItself(outline) ? endIndex : 0;
  if (count == 0) return;
  outline.Truncate(outline.Size() - 1);
  leftEdge.pop_back();
  rightEdge.pop_back();
}

}  // namespace kestrin::coverage
