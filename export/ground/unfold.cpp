#include "export/ground/unfold.h"

#include <cmath>

#include "export/ground/indexedPath.h"
#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

/// So many segments back a loop may have begun: a vehicle that stands jitters for long.
constexpr std::size_t kFar = 256;

class Cutter {
 public:
  Cutter(std::size_t points, double squareMetres) : left_(squareMetres) { path_.Reserve(points); }

  void Add(geo::UtmPoint point) {
    DrawTo(point);
    while (CutSpike() || CutLoop()) {
    }
  }

  const Line& Points() const { return path_.Points(); }
  double Left() const { return left_; }

 private:
  void DrawTo(geo::UtmPoint point) {
    if (path_.Size() == 0 || point != path_.Back()) path_.Append(point);
  }

  /// Takes the points after the first so many away, and draws on to others.
  void GoBack(std::size_t count, geo::UtmPoint over, geo::UtmPoint to) {
    path_.Truncate(count);
    DrawTo(over);
    DrawTo(to);
  }

  /// Takes out the newest corner when the way leads straight back from it.
  bool CutSpike() {
    const std::size_t count = path_.Size();
    if (count < 3) return false;
    const geo::UtmPoint from = path_[count - 3];
    const geo::UtmPoint corner = path_[count - 2];
    const geo::UtmPoint to = path_.Back();
    if (Dot(corner, from, to) <= 0 || SideOf(from, corner, to) != 0) return false;
    GoBack(count - 2, to, to);
    return true;
  }

  /// Cuts off the loop that the newest segment closes first.
  bool CutLoop() {
    const std::size_t count = path_.Size();
    if (count < 4) return false;
    const geo::UtmPoint from = path_[count - 2];
    const geo::UtmPoint to = path_.Back();
    std::size_t first = 0;
    geo::UtmPoint where;
    double nearest = -1;
    path_.AnyOfLast(kFar, [&](std::size_t i) {
      if (!SegmentsCross(from, to, path_[i], path_[i + 1])) return false;
      const geo::UtmPoint meeting = MeetingPoint(from, to, path_[i], path_[i + 1]);
      const double distance = SquareDistance(from, meeting);
      if (nearest < 0 || distance < nearest) {
        nearest = distance;
        first = i;
        where = meeting;
      }
      return false;
    });
    return nearest >= 0 && CutOff(first, where);
  }

  /// Cuts off the loop from after point `first` to before the newest, if it is small enough.
  bool CutOff(std::size_t first, geo::UtmPoint where) {
    // All that it passes over: parts of it may run one way round, and parts the other.
    double twice = 0;
    for (std::size_t i = first + 1; i + 2 < path_.Size(); ++i) {
      twice += std::fabs(Cross(where, path_[i], path_[i + 1]));
    }
    const double squareMetres = twice / 2;
    if (!(squareMetres < left_)) return false;
    left_ -= squareMetres;
    GoBack(first + 1, where, geo::UtmPoint(path_.Back()));
    return true;
  }

  IndexedPath path_;
  double left_;  // square metres that may be cut off yet
};

}  // namespace

Line Unfold(const Line& closed, double& squareMetres, base::LoopYield& yield) {
  Line line = closed;
  // Once from the middle on, and once from the beginning, where loops may close as well.
  for (int turn = 0; turn < 2 && line.size() >= 4; ++turn) {
    const std::size_t middle = line.size() / 2;
    Cutter cutter(line.size(), squareMetres);
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
      yield.Step();
      cutter.Add(line[(middle + i) % (line.size() - 1)]);
    }
    cutter.Add(line[middle]);
    line = cutter.Points();
    squareMetres = cutter.Left();
  }
  return line;
}

}  // namespace kestrin::ground
