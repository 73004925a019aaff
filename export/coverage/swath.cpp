#include "export/coverage/swath.h"

#include "geo/heading.h"

namespace kestrin::coverage {

SwathRow SwathRow::Of(geo::UtmPoint centre, double yaw, double width) {
  const geo::Heading heading(yaw);
  return {centre, heading.LeftOf(centre, width / 2), heading.RightOf(centre, width / 2)};
}

void Swath::Append(const SwathRow& row) {
  outline.Append(row.centre);
  leftEdge.push_back(row.left);
  rightEdge.push_back(row.right);
}

}  // namespace kestrin::coverage
