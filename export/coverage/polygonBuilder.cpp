#include "export/coverage/polygonBuilder.h"

#include "export/coverage/outline.h"

namespace kestrin::coverage {

void PolygonBuilder::Add(const SwathRow& row, bool begins) {
  if (rows_ == 0 || begins) {
    Begin(row);
  } else if (row.left == swath_.Newest().left && row.right == swath_.Newest().right) {
    return;
  } else {
    swath_.Append(row);
    std::size_t count = 0;
    CleanOutline(swath_.outline, swath_.leftEdge, swath_.rightEdge, startIndex_, rows_ + 1, count);
    if (count > 0) {
      swath_.DropNewest();
      Begin(row);
    }
  }
  ++rows_;
}

void PolygonBuilder::Close() {
  if (rows_ == 0) return;
  swath_.leftEdge.RemoveLastFold(swath_.rightEdge);
  swath_.rightEdge.RemoveLastFold(swath_.leftEdge);
  complete_.emplace_back(swath_.leftEdge.Points(), swath_.rightEdge.Points());
  if (rows_ < kFewestRows) return;
  for (const Ring& ring : complete_) sink_(ring);
  complete_.clear();
}

void PolygonBuilder::Begin(const SwathRow& row) {
  Close();
  startIndex_ = rows_ + 1;
  swath_.Begin(row);
}

}  // namespace kestrin::coverage
