#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace kestrin::boom {

/// A cross-line: longitude and latitude of its first point, then of its second.
using CrossLine = std::array<double, 4>;

/// A growing list of cross-lines. It grows by blocks that never move, so that tens
/// of millions of points are held once and in nothing but their own 16 bytes each.
class CrossLineList {
 public:
  std::size_t Size() const { return size_; }

  void Append(const CrossLine& pair);
  CrossLine At(std::size_t index) const;
  void Replace(std::size_t index, const CrossLine& pair);

  /// The coordinates from `begin` up to `end`, or as many of them as lie in one
  /// piece; at least one pair unless the range is empty. Valid until the list ends.
  std::span<const double> Piece(std::size_t begin, std::size_t end) const;

 private:
  static constexpr std::size_t kBlockPairs = std::size_t{1} << 14;

  double* Place(std::size_t index) const {
    return &blocks_[index / kBlockPairs][index % kBlockPairs * std::tuple_size_v<CrossLine>];
  }

  std::vector<std::unique_ptr<double[]>> blocks_;
  std::size_t size_ = 0;
};

}  // namespace kestrin::boom
