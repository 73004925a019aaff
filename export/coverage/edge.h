#pragma once

#include <cstddef>
#include <vector>

#include "export/coverage/indexedPath.h"

namespace kestrin::coverage {

/// What the vehicle did from the row before to the newest row.
struct SwathMotion {
  double turned = 0;           ///< yaw since the polygon's first row, in radians, not wrapped
  double headingEasting = 0;   ///< where the vehicle points between the two rows;
  double headingNorthing = 0;  ///< of any length
};

/// The left or right edge of the polygon being built: the line that one end of the
/// implement draws over the ground, a point a row, without its folds. UTM metres.
///
/// A fold is a loop that a sharp turn makes. When the vehicle turns tighter than half
/// the implement's width, the inner end runs backwards over ground already covered and
/// comes out again across the line that it drew before. A ring that took such a loop in
/// would cross itself and count its ground twice. So the loop's points all move to the
/// crossing, and as a ring takes one of equal neighbours only, they are taken away.
///
/// A loop that is no fold stays: that of a round which comes back to its own edge lies
/// around ground of its own. A fold is known by the vehicle's turn within it, which is
/// to the edge's own side and less than three quarters of a circle, and by running round
/// against that turn, where a round runs with it. Very small loops are folds in any case, and
/// so is one about the polygon's beginning that is smaller than half the implement's square:
/// there a vehicle turns about its first boom.
///
/// An edge that crosses nothing keeps every point as it is, to the bit. With a width of
/// 0 both edges are the way of the vehicle itself.
///
/// Nothing fails. Points with NaN or infinite coordinates are kept and close no fold.
class Edge {
 public:
  enum class Side { kLeft, kRight };

  explicit Edge(Side side) : toSide_(side == Side::kRight ? 1 : -1) {}

  /// Empties the edge. `origin` is any point near, the same for both edges: areas are
  /// measured from it.
  void Restart(geo::UtmPoint origin);
  void Append(geo::UtmPoint point, const SwathMotion& motion);
  void DropNewest();

  const std::vector<geo::UtmPoint>& Points() const { return path_.Points(); }

  /// Takes out the folds that the newest segment closes with this edge, with the boom of
  /// the polygon's first row (the line between the two edges' first points), and with
  /// the other edge. To be called after each Append() to both edges.
  void RemoveFolds(Edge& other);

  /// Takes out the fold that the boom of the polygon's last row closes. To be called
  /// when the polygon is complete.
  void RemoveLastFold(const Edge& other);

 private:
  /// About the segment that ends in a point.
  struct Note {
    double area = 0;  // twice the area between the edge so far and the origin
    float turned = 0;
    bool forward = true;
  };
  /// Where a fold closes.
  struct Crossing {
    std::size_t segment = 0;
    geo::UtmPoint point;
    double distance = -1;  // squared, along the segment that crosses
    bool Found() const { return distance >= 0; }
    void Offer(std::size_t at, geo::UtmPoint where, geo::UtmPoint from);
  };

  geo::UtmPoint FromEnd(std::size_t back) const { return path_[path_.Size() - 1 - back]; }
  double SquareWidth(const Edge& other) const;

  bool RemoveOwnFold(double square);
  bool RemoveFoldAtStart(const Edge& other, double square);
  bool RemoveFoldWith(Edge& other, double square);

  /// Whether the newest segment crosses segment i of the same edge, and where.
  bool CrossesNewest(std::size_t i, geo::UtmPoint& where) const;
  /// Of this edge's crossings with a segment a-b, the nearest to `a` of those for which
  /// `isFold(segment, crossing)`.
  template <class Judge>
  Crossing NearestFold(geo::UtmPoint a, geo::UtmPoint b, Judge isFold) const;
  bool IsFold(std::size_t segment, geo::UtmPoint crossing, double square) const;

  // Twice the signed area of a loop, positive when it runs against a turn to this edge's
  // side: counter-clockwise for the right edge.
  double LoopArea(std::size_t segment, geo::UtmPoint crossing, std::size_t last) const;
  double LoopArea(const Edge& other, std::size_t segment, geo::UtmPoint crossing) const;
  double TurnSince(std::size_t note) const;

  void MoveTo(std::size_t kept, geo::UtmPoint crossing);
  void MoveBeginning(std::size_t last, geo::UtmPoint crossing);
  void Push(geo::UtmPoint point, double turned, bool forward);

  double toSide_;
  IndexedPath path_;
  std::vector<Note> notes_;
  geo::UtmPoint origin_;
  double length_ = 0;  // of the edge as it was drawn
};

}  // namespace kestrin::coverage
