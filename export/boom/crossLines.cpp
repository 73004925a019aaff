#include "export/boom/crossLines.h"

#include <algorithm>

namespace kestrin::boom {

void CrossLineList::Append(const CrossLine& pair) {
  if (size_ % kBlockPairs == 0) {
    blocks_.push_back(
        std::make_unique_for_overwrite<double[]>(kBlockPairs * std::tuple_size_v<CrossLine>));
  }
  Replace(size_++, pair);
}

CrossLine CrossLineList::At(std::size_t index) const {
  CrossLine pair;
  std::copy_n(Place(index), pair.size(), pair.begin());
  return pair;
}

void CrossLineList::Replace(std::size_t index, const CrossLine& pair) {
  std::copy(pair.begin(), pair.end(), Place(index));
}

std::span<const double> CrossLineList::Piece(std::size_t begin, std::size_t end) const {
  if (begin >= end) return {};
  const std::size_t pairs = std::min(end - begin, kBlockPairs - begin % kBlockPairs);
  return {Place(begin), pairs * std::tuple_size_v<CrossLine>};
}

}  // namespace kestrin::boom
