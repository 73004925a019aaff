#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "export/ground/blockBoxes.h"
#include "geo/box.h"
#include "geo/points.h"

namespace kestrin::ground {

/// A polyline that grows at its end and finds its segments near a place without asking
/// each. Points are UTM metres; segment i leads from point i to point i + 1.
///
/// What the newest segment may touch is looked up for the ground around it and ahead of
/// it at once, so that most rows ask a few boxes only. That is what LookAround() is for: it
/// makes a million rows in one polygon three to eight times as fast. It looks in turn among
/// what it found on more ground before, as a search of the whole way costs more the longer
/// that is. Long segments cost time, never an answer.
///
/// A segment of no length, or with a NaN or infinite end, meets nothing and may be passed
/// over.
class IndexedPath {
 public:
  /// Empties the path; what it has allocated stays.
  void Restart() { Truncate(0); }

  void Reserve(std::size_t points) { points_.reserve(points); }

  void Append(geo::UtmPoint point) {
    points_.push_back(point);
    if (points_.size() > kBlock && points_.size() % kBlock == 1) AddBlock();
  }

  /// Keeps only the first `count` points.
  void Truncate(std::size_t count);

  std::size_t Size() const { return points_.size(); }
  const geo::UtmPoint& operator[](std::size_t i) const { return points_[i]; }
  const geo::UtmPoint& Back() const { return points_.back(); }
  const std::vector<geo::UtmPoint>& Points() const { return points_; }

  /// Calls `visit(i)` for the segments among about so many last ones whose boxes overlap that
  /// of the newest, but for it and the one before it, in order, until a call returns true;
  /// tells whether one did. Of a path of four points or more.
  template <class Visit>
  bool AnyOfLast(std::size_t count, Visit visit) const {
    const std::size_t end = points_.size() - 3;
    const std::size_t first = end > count ? end - count : 0;
    return AnyFrom(first / kBlock, end, BoxOf(points_.size() - 2), visit);
  }

  /// The same among all, with so much around the newest's box.
  template <class Visit>
  bool AnyNearNewest(double around, Visit visit) {
    const std::size_t end = points_.size() - 3;
    const geo::Box box = BoxOf(points_.size() - 2).Grown(around);
    if (!near_.ground.Contains(box)) LookAround(box);
    for (const std::size_t block : near_.blocks) {
      if (blocks_[block].Overlaps(box) && AnyOf(block, end, box, visit)) return true;
    }
    return AnyFrom(near_.of, end, box, visit);
  }

 private:
  static constexpr std::size_t kBlock = 16;

  /// The blocks on some ground, of the first so many.
  struct LookedUp {
    geo::Box ground;
    std::vector<std::size_t> blocks;
    std::size_t of = 0;
  };

  void AddBlock();
  void LookAround(const geo::Box& box);
  geo::Box Ahead(double times) const;

  geo::Box BoxOf(std::size_t segment) const {
    return geo::Box::Of(points_[segment], points_[segment + 1]);
  }

  template <class Visit>
  bool AnyFrom(std::size_t block, std::size_t end, const geo::Box& box, Visit& visit) const {
    const auto ofBlock = [&](std::size_t i) { return AnyOf(i, end, box, visit); };
    return blocks_.AnyOverlapping(block, box, ofBlock) ||
           AnyBetween(blocks_.Size() * kBlock, end, box, visit);
  }

  template <class Visit>
  bool AnyOf(std::size_t block, std::size_t end, const geo::Box& box, Visit& visit) const {
    return AnyBetween(block * kBlock, std::min((block + 1) * kBlock, end), box, visit);
  }

  template <class Visit>
  bool AnyBetween(std::size_t begin, std::size_t end, const geo::Box& box, Visit& visit) const {
    for (std::size_t i = begin; i < end; ++i) {
      if (BoxOf(i).Overlaps(box) && visit(i)) return true;
    }
    return false;
  }

  std::vector<geo::UtmPoint> points_;
  BlockBoxes blocks_;  // of 16 segments each

  LookedUp near_, far_;
};

}  // namespace kestrin::ground
