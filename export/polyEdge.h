#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "export/polySegments.h"

namespace kestrin {

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
class SwathEdge {
 public:
  enum class Side { kLeft, kRight };

  explicit SwathEdge(Side side) : toSide_(side == Side::kRight ? 1 : -1) {}

  /// `origin` is any point near; the same for both edges.
  void Restart(UtmPoint origin);
  void Append(UtmPoint point, const SwathMotion& motion);
  void DropNewest();

  const std::vector<UtmPoint>& Points() const { return trail_.Points(); }

  /// Takes away the loops that the newest segment closes with this edge, with the
  /// line between the two edges' first points, and with the other edge.
  void RemoveLoops(SwathEdge& other);

  /// Takes away the loop that the line between the two edges' last points closes.
  void RemoveLastLoop(const SwathEdge& other);

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
    UtmPoint point;
    double distance = -1;  // squared, along the newest segment
    bool Found() const { return distance >= 0; }
    void Offer(std::size_t at, UtmPoint where, UtmPoint from);
  };

  /// Whether the newest segment crosses segment i of the same edge, and where.
  bool CrossesNewest(std::size_t i, UtmPoint& where) const;
  UtmPoint FromEnd(std::size_t back) const { return trail_[trail_.Size() - 1 - back]; }
  double LoopArea(std::size_t segment, UtmPoint crossing, std::size_t last) const;
  double LoopArea(const SwathEdge& other, std::size_t segment, UtmPoint crossing) const;
  double TurnSince(std::size_t note) const;
  bool IsFold(std::size_t segment, UtmPoint crossing, double square) const;

  bool RemoveOwnLoop(double square);
  bool RemoveLoopAtStart(const SwathEdge& other);
  bool RemoveLoopWith(SwathEdge& other);
  void MoveTo(std::size_t kept, UtmPoint crossing);
  void MoveBeginning(std::size_t last, UtmPoint crossing);
  void Push(UtmPoint point, double turned, bool forward);

  double toSide_;
  SegmentTrail trail_;
  std::vector<Note> notes_;
  UtmPoint origin_;
  double length_ = 0;  // of the edge as it was drawn, while that matters
};

}  // namespace kestrin
