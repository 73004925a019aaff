#include "export/ground/unfold.h"

#include <algorithm>
#include <cmath>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

/// So many segments back a loop may have begun.
constexpr std::size_t kFar = 24;

class Cutter {
 public:
  Cutter(std::size_t points, double squareMetres) : left_(squareMetres) { line_.reserve(points); }

  void Add(geo::UtmPoint point) {
    if (!line_.empty() && point == line_.back()) return;
    line_.push_back(point);
    while (CutSpike() || CutLoop()) {
    }
  }

  Line& Points() { return line_; }
  double Left() const { return left_; }

 private:
  /// Takes out the newest corner when the way leads straight back from it.
  bool CutSpike() {
    const std::size_t count = line_.size();
    if (count < 3) return false;
    const geo::UtmPoint from = line_[count - 3];
    const geo::UtmPoint corner = line_[count - 2];
    if (SideOf(from, corner, line_.back()) != 0 || Dot(corner, from, line_.back()) <= 0) {
      return false;
    }
    line_.erase(line_.end() - 2);
    if (line_.back() == line_[line_.size() - 2]) line_.pop_back();
    return true;
  }

  /// Cuts off the loop that the newest segment closes first.
  bool CutLoop() {
    const std::size_t count = line_.size();
    if (count < 4) return false;
    const geo::UtmPoint from = line_[count - 2];
    const geo::UtmPoint to = line_.back();
    const geo::Box box = geo::Box::Of(from, to);
    std::size_t first = 0;
    geo::UtmPoint where;
    double nearest = -1;
    const std::size_t end = count - 3;
    for (std::size_t i = end > kFar ? end - kFar : 0; i < end; ++i) {
      const geo::UtmPoint a = line_[i];
      const geo::UtmPoint b = line_[i + 1];
      if (!geo::Box::Of(a, b).Overlaps(box) || !SegmentsCross(from, to, a, b)) continue;
      const geo::UtmPoint meeting = MeetingPoint(from, to, a, b);
      const double distance = SquareDistance(from, meeting);
      if (nearest >= 0 && distance >= nearest) continue;
      nearest = distance;
      first = i;
      where = meeting;
    }
    return nearest >= 0 && CutOff(first, where);
  }

  /// Cuts off the loop from after point `first` to before the newest, if it is small enough.
  bool CutOff(std::size_t first, geo::UtmPoint where) {
    double twice = 0;
    for (std::size_t i = first + 1; i + 2 < line_.size(); ++i) {
      twice += Cross(where, line_[i], line_[i + 1]);
    }
    if (!(std::fabs(twice) / 2 < left_)) return false;
    left_ -= std::fabs(twice) / 2;
    const geo::UtmPoint newest = line_.back();
    line_.resize(first + 1);
    if (where != line_.back()) line_.push_back(where);
    if (newest != line_.back()) line_.push_back(newest);
    return true;
  }

  Line line_;
  double left_;  // square metres that may be cut off yet
};

}  // namespace

Line Unfold(const Line& closed, double& squareMetres) {
  Line line = closed;
  // Once from the middle on, and once from the beginning, where loops may close as well.
  for (int turn = 0; turn < 2 && line.size() >= 4; ++turn) {
    const std::size_t middle = line.size() / 2;
    Cutter cutter(line.size(), squareMetres);
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
      cutter.Add(line[(middle + i) % (line.size() - 1)]);
    }
    cutter.Add(line[middle]);
    line = std::move(cutter.Points());
    squareMetres = cutter.Left();
  }
  return line;
}

}  // namespace kestrin::ground
