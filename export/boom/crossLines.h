#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geo/points.h"

namespace kestrin::boom {

/// The line across a section, from one edge of it to the other.
struct CrossLine {
  geo::GeoPoint first;
  geo::GeoPoint second;
};

/// A growing list of cross-lines. It grows by blocks that never move, so that tens of millions
/// are held once and in nothing but their own 32 bytes each.
class CrossLineList {
 public:
  std::size_t Size() const { return size_; }

  void Append(const CrossLine& line);

  /// Valid until the list ends.
  CrossLine& operator[](std::size_t index) { return blocks_[index / kBlock][index % kBlock]; }

  /// The lines from `begin` up to `end`, of which there must be one, or as many of them as lie in
  /// one piece. Valid until the list ends.
  std::span<const CrossLine> Piece(std::size_t begin, std::size_t end) const;

 private:
  static constexpr std::size_t kBlock = std::size_t{1} << 14;

  std::vector<std::vector<CrossLine>> blocks_;
  std::size_t size_ = 0;
};

}  // namespace kestrin::boom
