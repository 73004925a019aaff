#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "export/coverage/indexedPath.h"

namespace kestrin::coverage {

/// What the newest row did, for the edges.
struct SwathMotion {
  double turned = 0;           ///< yaw since the polygon's first row, in radians, not wrapped
  double headingEasting = 0;   ///< where the vehicle points between the row before
  double headingNorthing = 0;  ///< and this one; of any length
};

/// The left or right edge of the polygon being built, without the loops that it
/// makes in sharp turns.
///
/// When the vehicle turns tighter than half its implement, the inner end moves
/// backwards over ground already covered and comes out again across the edge it had
/// drawn on the way in. The loop between is covered twice; taken into a ring it
/// would make the ring cross itself. So the points between are moved to the
/// crossing, and since a ring takes of equal neighbours only one, they are simply
/// taken away.
///
/// Such a loop tells itself from a round that comes back to its own edge, which must
/// stay because it lies around ground of its own, by the way it runs and by the
/// turn: the vehicle has turned to the loop's side, and by less than a full circle.
/// An edge that crosses nothing keeps every point as it is.
class Edge {
 public:
  enum class Side { kLeft, kRight };

  explicit Edge(Side side) : toSide_(side == Side::kRight ? 1 : -1) {}

  /// `origin` is any point near; the same for both edges.
  void Restart(geo::UtmPoint origin);
  void Append(geo::UtmPoint point, const SwathMotion& motion);
  void DropNewest();

  const std::vector<geo::UtmPoint>& Points() const { return trail_.Points(); }

  /// Takes away the loops that the newest segment closes with this edge, with the
  /// line between the two edges' first points, and with the other edge.
  void RemoveLoops(Edge& other);

  /// Takes away the loop that the line between the two edges' last points closes.
  void RemoveLastLoop(const Edge& other);

 private:
  /// About the segment that ends in a point.
  struct Note {
    double area = 0;  // twice the area between the edge so far and the origin
    float turned = 0;
    bool forward = true;
  };
  /// Where a loop closes.
  struct Crossing {
    std::size_t segment = 0;
    geo::UtmPoint point;
    double distance = -1;  // squared, along the newest segment
    bool Found() const { return distance >= 0; }
    void Offer(std::size_t at, geo::UtmPoint where, geo::UtmPoint from);
  };

  /// Whether the newest segment crosses segment i of the same edge, and where.
  bool CrossesNewest(std::size_t i, geo::UtmPoint& where) const;
  geo::UtmPoint FromEnd(std::size_t back) const { return trail_[trail_.Size() - 1 - back]; }
  double LoopArea(std::size_t segment, geo::UtmPoint crossing, std::size_t last) const;
  double LoopArea(const Edge& other, std::size_t segment, geo::UtmPoint crossing) const;
  double TurnSince(std::size_t note) const;
  bool IsFold(std::size_t segment, geo::UtmPoint crossing, double square) const;

  bool RemoveOwnLoop(double square);
  bool RemoveLoopAtStart(const Edge& other);
  bool RemoveLoopWith(Edge& other);
  void MoveTo(std::size_t kept, geo::UtmPoint crossing);
  void MoveBeginning(std::size_t last, geo::UtmPoint crossing);
  void Push(geo::UtmPoint point, double turned, bool forward);

  double toSide_;
  IndexedPath trail_;
  std::vector<Note> notes_;
  geo::UtmPoint origin_;
  double length_ = 0;  // of the edge as it was drawn, while that matters
};

}  // namespace kestrin::coverage
