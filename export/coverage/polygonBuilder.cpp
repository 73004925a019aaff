#include "export/coverage/polygonBuilder.h"

#include <utility>

namespace kestrin::coverage {

void PolygonBuilder::Add(const SwathRow& row, bool begins) {
  if (rows_ == 0 || begins) {
    Begin(row);
  } else if (row.left == last_.left && row.right == last_.right) {
    return;
  } else {
    outline_.Append(row);
    if (CleanOutline(outline_) > 0) {
      outline_.DropNewest();
      Begin(row);
    }
  }
  last_ = row;
  ++rows_;
}

void PolygonBuilder::Finish() {
  Close();
  if (rows_ < kFewestRows) return;
  for (const Ring& ring : std::exchange(early_, {})) sink_(ring);
}

void PolygonBuilder::Begin(const SwathRow& row) {
  Close();
  outline_.Begin(row);
}

void PolygonBuilder::Close() {
  if (rows_ == 0) return;
  outline_.leftEdge.RemoveLastLoop(outline_.rightEdge);
  outline_.rightEdge.RemoveLastLoop(outline_.leftEdge);
  ring_.Build(outline_.leftEdge.Points(), outline_.rightEdge.Points());
  if (rows_ < kFewestRows) {
    early_.push_back(ring_);
    return;
  }
  for (const Ring& ring : std::exchange(early_, {})) sink_(ring);
  sink_(ring_);
}

}  // namespace kestrin::coverage
