#include "export/boom/crossLines.h"

#include <algorithm>

namespace kestrin::boom {

void CrossLineList::Append(const CrossLine& line) {
  if (size_ % kBlock == 0) blocks_.emplace_back().reserve(kBlock);
  blocks_.back().push_back(line);
  ++size_;
}

std::span<const CrossLine> CrossLineList::Piece(std::size_t begin, std::size_t end) const {
  const std::size_t at = begin % kBlock;
  return {&blocks_[begin / kBlock][at], std::min(end - begin, kBlock - at)};
}

}  // namespace kestrin::boom
