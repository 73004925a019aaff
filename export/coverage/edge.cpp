#include "export/coverage/edge.h"

#include <cmath>
#include <numbers>

namespace kestrin::coverage {
namespace {

geo::UtmPoint MeetingPoint(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d) {
  geo::UtmPoint meeting;
  FindLineIntersection(a.easting, a.northing, b.easting, b.northing, c.easting, c.northing,
                       d.easting, d.northing, meeting.easting, meeting.northing);
  return meeting;
}

double SquareDistance(geo::UtmPoint a, geo::UtmPoint b) {
  const double east = a.easting - b.easting;
  const double north = a.northing - b.northing;
  return east * east + north * north;
}

// A turn to the loop's own side; the rest is room for a yaw that lags behind or
// swings, as after a turn of half a circle.
constexpr double kLeastTurn = -0.25;
constexpr double kMostTurn = 1.5 * std::numbers::pi;

// Loops of less than this share of the implement's square, such as a vehicle makes
// that jolts or backs up a little, are not worth an argument.
constexpr double kSmall = 0.04;

// So many widths long, an edge is past turning about its own beginning.
constexpr double kYoung = 10;

}  // namespace

void Edge::Crossing::Offer(std::size_t at, geo::UtmPoint where, geo::UtmPoint from) {
  const double offered = SquareDistance(where, from);
  if (!Found() || offered < distance) *this = {at, where, offered};
}

void Edge::Restart(geo::UtmPoint origin) {
  trail_.Restart();
  notes_.clear();
  origin_ = origin;
  length_ = 0;
}

void Edge::Append(geo::UtmPoint point, const SwathMotion& motion) {
  if (notes_.empty()) {
    Push(point, motion.turned, true);
    return;
  }
  const geo::UtmPoint before = trail_.Back();
  length_ += std::sqrt(SquareDistance(before, point));
  const double forward = (point.easting - before.easting) * motion.headingEasting +
                         (point.northing - before.northing) * motion.headingNorthing;
  Push(point, motion.turned, forward >= 0);
}

void Edge::DropNewest() {
  trail_.Truncate(trail_.Size() - 1);
  notes_.pop_back();
}

void Edge::RemoveLoops(Edge& other) {
  const double square = SquareDistance(trail_.Back(), other.trail_.Back());
  const bool young = length_ * length_ < kYoung * kYoung * square;
  while (RemoveOwnLoop(square) || RemoveLoopAtStart(other) || (young && RemoveLoopWith(other))) {
  }
}

bool Edge::RemoveOwnLoop(double square) {
  if (trail_.Size() < 4) return false;
  const geo::UtmPoint a = FromEnd(1);
  Crossing first;
  trail_.AnyNearNewest([&](std::size_t i) {
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
  const geo::UtmPoint c = trail_[i];
  const geo::UtmPoint d = trail_[i + 1];
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
    return CrossesAtCorner(d, d == a ? FromEnd(2) : a, b, c, trail_[i + 2]);
  }
  where = a;
  return sideOfStart == 0 && a != c && LiesBeforeEnd(c, d, a) &&
         CrossesAtCorner(a, FromEnd(2), b, c, d);
}

bool Edge::RemoveLoopAtStart(const Edge& other) {
  if (trail_.Size() < 3) return false;
  const geo::UtmPoint a = FromEnd(1);
  const geo::UtmPoint b = FromEnd(0);
  const geo::Box start = geo::Box::Of(trail_[0], other.trail_[0]);
  if (!start.Overlaps(geo::Box::Of(a, b))) return false;
  if (!SegmentsCross(a, b, trail_[0], other.trail_[0])) return false;
  const geo::UtmPoint point = MeetingPoint(a, b, trail_[0], other.trail_[0]);
  const double area = LoopArea(other, 0, point);
  const double turn = TurnSince(0);
  const bool covered = area > 0 && turn > kLeastTurn && turn < kMostTurn;
  const bool turnedAbout = area < 0 && -area < SquareDistance(trail_.Back(), other.trail_.Back());
  if (!covered && !turnedAbout) return false;
  MoveTo(0, point);
  return true;
}

bool Edge::RemoveLoopWith(Edge& other) {
  if (trail_.Size() < 3) return false;
  const geo::UtmPoint a = FromEnd(1);
  const geo::UtmPoint b = FromEnd(0);
  const double most = SquareDistance(trail_.Back(), other.trail_.Back());
  Crossing first;
  other.trail_.AnyNear(geo::Box::Of(a, b), other.trail_.Size() - 2, [&](std::size_t i) {
    if (SegmentsCross(a, b, other.trail_[i], other.trail_[i + 1])) {
      const geo::UtmPoint point = MeetingPoint(a, b, other.trail_[i], other.trail_[i + 1]);
      const double area = LoopArea(other, i, point);
      if (-area < most && area < kSmall * most) first.Offer(i, point, a);
    }
    return false;
  });
  if (!first.Found()) return false;
  other.MoveBeginning(first.segment, first.point);
  MoveTo(0, first.point);
  return true;
}

void Edge::RemoveLastLoop(const Edge& other) {
  if (trail_.Size() < 3) return;
  const geo::UtmPoint a = trail_.Back();
  const geo::UtmPoint b = other.trail_.Back();
  Crossing first;
  trail_.AnyNear(geo::Box::Of(a, b), trail_.Size() - 2, [&](std::size_t i) {
    if (SegmentsCross(a, b, trail_[i], trail_[i + 1])) {
      const geo::UtmPoint point = MeetingPoint(a, b, trail_[i], trail_[i + 1]);
      const double area = LoopArea(i, point, trail_.Size() - 1);
      const double turn = TurnSince(i + 1);
      if (area > 0 && turn > kLeastTurn && turn < kMostTurn) first.Offer(i, point, a);
    }
    return false;
  });
  if (!first.Found()) return;
  trail_.Truncate(first.segment + 1);
  notes_.resize(first.segment + 1);
  Push(first.point, 0, true);
}

double Edge::TurnSince(std::size_t note) const {
  return static_cast<double>(notes_.back().turned - notes_[note].turned) * toSide_;
}

bool Edge::IsFold(std::size_t segment, geo::UtmPoint crossing, double square) const {
  const double turn = TurnSince(segment + 1);
  if (!(std::fabs(turn) < kMostTurn)) return false;
  const double area = LoopArea(segment, crossing, trail_.Size() - 2);
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
            Cross(origin_, crossing, trail_[segment + 1]) + Cross(origin_, trail_[last], crossing));
  }
  double area = 0;
  for (std::size_t i = segment + 1; i < last; ++i)
    area += Cross(crossing, trail_[i], trail_[i + 1]);
  return toSide_ * area;
}

double Edge::LoopArea(const Edge& other, std::size_t segment, geo::UtmPoint crossing) const {
  // Back along the other edge to its beginning, across, and along this one.
  const std::size_t last = trail_.Size() - 2;
  return toSide_ * (Cross(origin_, crossing, other.trail_[segment]) -
                    (other.notes_[segment].area - other.notes_[0].area) +
                    Cross(origin_, other.trail_[0], trail_[0]) +
                    (notes_[last].area - notes_[0].area) + Cross(origin_, trail_[last], crossing));
}

void Edge::MoveBeginning(std::size_t last, geo::UtmPoint crossing) {
  const double area = notes_[last + 1].area - Cross(origin_, crossing, trail_[last + 1]);
  for (std::size_t i = 0; i <= last; ++i) {
    trail_.Move(i, crossing);
    notes_[i].area = area;
  }
}

void Edge::MoveTo(std::size_t kept, geo::UtmPoint crossing) {
  const geo::UtmPoint newest = trail_.Back();
  const Note note = notes_.back();
  const Note reached = notes_[kept];
  trail_.Truncate(kept);
  notes_.resize(kept);
  Push(crossing, static_cast<double>(reached.turned), reached.forward);
  Push(newest, static_cast<double>(note.turned), note.forward);
}

void Edge::Push(geo::UtmPoint point, double turned, bool forward) {
  const double area =
      notes_.empty() ? 0 : notes_.back().area + Cross(origin_, trail_.Back(), point);
  trail_.Append(point);
  notes_.push_back({area, static_cast<float>(turned), forward});
}

}  // namespace kestrin::coverage
