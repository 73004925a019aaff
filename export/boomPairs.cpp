#include "export/boomPairs.h"

#include <algorithm>

namespace kestrin {

void PairList::Append(const BoomPair& pair) {
  if (size_ % kBlockPairs == 0) {
    blocks_.push_back(
        std::make_unique_for_overwrite<double[]>(kBlockPairs * std::tuple_size_v<BoomPair>));
  }
  Replace(size_++, pair);
}

BoomPair PairList::At(std::size_t index) const {
  BoomPair pair;
  std::copy_n(Place(index), pair.size(), pair.begin());
  return pair;
}

void PairList::Replace(std::size_t index, const BoomPair& pair) {
  std::copy(pair.begin(), pair.end(), Place(index));
}

std::span<const double> PairList::Piece(std::size_t begin, std::size_t end) const {
  if (begin >= end) return {};
  const std::size_t pairs = std::min(end - begin, kBlockPairs - begin % kBlockPairs);
  return {Place(begin), pairs * std::tuple_size_v<BoomPair>};
}

}  // namespace kestrin
