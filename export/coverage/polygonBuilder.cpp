#include "export/coverage/polygonBuilder.h"

#include "export/coverage/outline.h"

namespace kestrin::coverage {

void PolygonBuilder::Add(const SwathRow& row, bool begins) {
  if (rows_ == 0 || begins) {
    Begin(row);
  } else if (row.left == swath_.leftEdge.back() && row.right == swath_.rightEdge.back()) {
    return;
  } else {
    swath_.Append(row);
    std::size_t count = 0;
    CleanOutline(swath_.outline, swath_.leftEdge, swath_.rightEdge, startIndex_, rows_ + 1, count);
    if (count > 0) Begin(row);
  }
  ++rows_;
}

void PolygonBuilder::Close() {
  if (rows_ == 0) return;
  complete_.push_back({std::move(swath_.leftEdge), std::move(swath_.rightEdge)});
  // The next begins empty; and the outline's memory is free before the ring takes its own.
  swath_ = {};
  if (rows_ < kFewestRows) return;
  for (Edges& edges : complete_) sink_(std::move(edges));
  complete_.clear();
}

void PolygonBuilder::Begin(const SwathRow& row) {
  Close();
  startIndex_ = rows_ + 1;
  swath_.Append(row);
}

}  // namespace kestrin::coverage
