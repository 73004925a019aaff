#include "export/coverage/edge.h"

#include <cmath>
#include <numbers>

#include "export/coverage/planeGeometry.h"

namespace kestrin::coverage {
namespace {

// A turn to the edge's own side; the rest is room for a yaw that lags behind or
// swings, as after a turn of half a circle.
constexpr double kLeastTurn = -0.25;
constexpr double kMostTurn = 1.5 * std::numbers::pi;

// Loops of less than this share of the implement's square, such as a vehicle makes
// that jolts or backs up a little, are not worth an argument.
constexpr double kSmall = 0.04;

// So many widths long, an edge is past turning about its own beginning.
constexpr double kYoung = 10;

bool TurnsToItsSide(double turn) { return turn > kLeastTurn && turn < kMostTurn; }

/// Whether the point, on the line from `a` to `b`, lies on the segment and not at its
/// end `b`.
bool LiesBeforeEnd(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint point) {
  return point != b && geo::Box::Of(a, b).Holds(point);
}

}  // namespace

void Edge::Crossing::Offer(std::size_t at, geo::UtmPoint where, geo::UtmPoint from) {
  const double offered = SquareDistance(where, from);
  if (!Found() || offered < distance) *this = {at, where, offered};
}

void Edge::Restart(geo::UtmPoint origin) {
  path_.Restart();
  notes_.clear();
  origin_ = origin;
  length_ = 0;
}

void Edge::Append(geo::UtmPoint point, const SwathMotion& motion) {
  if (notes_.empty()) {
    Push(point, motion.turned, true);
    return;
  }
  const geo::UtmPoint before = path_.Back();
  length_ += std::sqrt(SquareDistance(before, point));
  const double forward = (point.easting - before.easting) * motion.headingEasting +
                         (point.northing - before.northing) * motion.headingNorthing;
  Push(point, motion.turned, forward >= 0);
}

void Edge::DropNewest() {
  path_.Truncate(path_.Size() - 1);
  notes_.pop_back();
}

double Edge::SquareWidth(const Edge& other) const {
  return SquareDistance(path_.Back(), other.path_.Back());
}

void Edge::RemoveFolds(Edge& other) {
  const double square = SquareWidth(other);
  const bool young = length_ * length_ < kYoung * kYoung * square;
  while (RemoveOwnFold(square) || RemoveFoldAtStart(other, square) ||
         (young && RemoveFoldWith(other, square))) {
  }
}

bool Edge::RemoveOwnFold(double square) {
  if (path_.Size() < 4) return false;
  const geo::UtmPoint a = FromEnd(1);
  Crossing first;
  path_.AnyNearNewest([&](std::size_t i) {
    geo::UtmPoint point;
    if (CrossesNewest(i, point) && IsFold(i, point, square)) first.Offer(i, point, a);
    return false;
  });
  if (!first.Found()) return false;
  MoveTo(first.segment + 1, first.point);
  return true;
}

bool Edge::CrossesNewest(std::size_t i, geo::UtmPoint& where) const {
  const geo::UtmPoint a = FromEnd(1);
  const geo::UtmPoint b = FromEnd(0);
  const geo::UtmPoint c = path_[i];
  const geo::UtmPoint d = path_[i + 1];
  const int sideOfEnd = SideOf(a, b, d);
  const int sideOfStart = SideOf(c, d, a);
  if (sideOfEnd != 0 && sideOfStart != 0) {
    if (SideOf(a, b, c) * sideOfEnd >= 0 || sideOfStart * SideOf(c, d, b) >= 0) return false;
    where = MeetingPoint(a, b, c, d);
    return true;
  }
  // A point of one lies on the other: they cross there if their ways change sides.
  if (sideOfEnd == 0 && LiesBeforeEnd(a, b, d)) {
    where = d;
    return CrossesAtCorner(d, d == a ? FromEnd(2) : a, b, c, path_[i + 2]);
  }
  where = a;
  return sideOfStart == 0 && a != c && LiesBeforeEnd(c, d, a) &&
         CrossesAtCorner(a, FromEnd(2), b, c, d);
}

bool Edge::RemoveFoldAtStart(const Edge& other, double square) {
  if (path_.Size() < 3) return false;
  const geo::UtmPoint a = FromEnd(1);
  const geo::UtmPoint b = FromEnd(0);
  const geo::UtmPoint c = path_[0];
  const geo::UtmPoint d = other.path_[0];
  if (!geo::Box::Of(c, d).Overlaps(geo::Box::Of(a, b)) || !SegmentsCross(a, b, c, d)) return false;
  const geo::UtmPoint point = MeetingPoint(a, b, c, d);
  const double area = LoopArea(other, 0, point);
  const bool covered = area > 0 && TurnsToItsSide(TurnSince(0));
  const bool turnedAbout = area < 0 && -area < square;
  if (!covered && !turnedAbout) return false;
  MoveTo(0, point);
  return true;
}

template <class Judge>
Edge::Crossing Edge::NearestFold(geo::UtmPoint a, geo::UtmPoint b, Judge isFold) const {
  Crossing nearest;
  path_.AnyNear(geo::Box::Of(a, b), [&](std::size_t i) {
    if (SegmentsCross(a, b, path_[i], path_[i + 1])) {
      const geo::UtmPoint point = MeetingPoint(a, b, path_[i], path_[i + 1]);
      if (isFold(i, point)) nearest.Offer(i, point, a);
    }
    return false;
  });
  return nearest;
}

bool Edge::RemoveFoldWith(Edge& other, double square) {
  if (path_.Size() < 3) return false;
  const auto isFold = [&](std::size_t i, geo::UtmPoint point) {
    const double area = LoopArea(other, i, point);
    return -area < square && area < kSmall * square;
  };
  const Crossing first = other.NearestFold(FromEnd(1), FromEnd(0), isFold);
  if (!first.Found()) return false;
  other.MoveBeginning(first.segment, first.point);
  MoveTo(0, first.point);
  return true;
}

void Edge::RemoveLastFold(const Edge& other) {
  if (path_.Size() < 3) return;
  const auto isFold = [&](std::size_t i, geo::UtmPoint point) {
    return LoopArea(i, point, path_.Size() - 1) > 0 && TurnsToItsSide(TurnSince(i + 1));
  };
  const Crossing first = NearestFold(path_.Back(), other.path_.Back(), isFold);
  if (!first.Found()) return;
  path_.Truncate(first.segment + 1);
  notes_.resize(first.segment + 1);
  Push(first.point, 0, true);
}

double Edge::TurnSince(std::size_t note) const {
  return static_cast<double>(notes_.back().turned - notes_[note].turned) * toSide_;
}

bool Edge::IsFold(std::size_t segment, geo::UtmPoint crossing, double square) const {
  const double turn = TurnSince(segment + 1);
  if (!(std::fabs(turn) < kMostTurn)) return false;
  const double area = LoopArea(segment, crossing, path_.Size() - 2);
  if (std::fabs(area) < kSmall * square) return true;
  // Drawn forward on the way in and out, the loop is covered twice. With either
  // drawn backward it runs the other way round.
  const bool forward = notes_[segment + 1].forward && notes_.back().forward;
  return (forward ? area > 0 : area < 0) && turn > kLeastTurn;
}

double Edge::LoopArea(std::size_t segment, geo::UtmPoint crossing, std::size_t last) const {
  constexpr std::size_t kShort = 16;
  if (last - segment > kShort) {
    return toSide_ *
           (notes_[last].area - notes_[segment + 1].area +
            Cross(origin_, crossing, path_[segment + 1]) + Cross(origin_, path_[last], crossing));
  }
  double area = 0;
  for (std::size_t i = segment + 1; i < last; ++i) area += Cross(crossing, path_[i], path_[i + 1]);
  return toSide_ * area;
}

double Edge::LoopArea(const Edge& other, std::size_t segment, geo::UtmPoint crossing) const {
  // Back along the other edge to its beginning, across, and along this one.
  const std::size_t last = path_.Size() - 2;
  return toSide_ * (Cross(origin_, crossing, other.path_[segment]) -
                    (other.notes_[segment].area - other.notes_[0].area) +
                    Cross(origin_, other.path_[0], path_[0]) +
                    (notes_[last].area - notes_[0].area) + Cross(origin_, path_[last], crossing));
}

void Edge::MoveBeginning(std::size_t last, geo::UtmPoint crossing) {
  const double area = notes_[last + 1].area - Cross(origin_, crossing, path_[last + 1]);
  for (std::size_t i = 0; i <= last; ++i) {
    path_.Move(i, crossing);
    notes_[i].area = area;
  }
}

void Edge::MoveTo(std::size_t kept, geo::UtmPoint crossing) {
  const geo::UtmPoint newest = path_.Back();
  const Note note = notes_.back();
  const Note reached = notes_[kept];
  path_.Truncate(kept);
  notes_.resize(kept);
  Push(crossing, static_cast<double>(reached.turned), reached.forward);
  Push(newest, static_cast<double>(note.turned), note.forward);
}

void Edge::Push(geo::UtmPoint point, double turned, bool forward) {
  const double area = notes_.empty() ? 0 : notes_.back().area + Cross(origin_, path_.Back(), point);
  path_.Append(point);
  notes_.push_back({area, static_cast<float>(turned), forward});
}

}  // namespace kestrin::coverage
