#pragma once

#include <cstddef>
#include <tuple>
#include <utility>
#include <vector>

#include "base/runHost.h"
#include "export/ground/geos.h"
#include "export/net/weave.h"

namespace kestrin::net {

/// Joins the ground of square tiles along their borders, in time and memory in proportion to
/// its points: a job's outline can have millions, for which the geometry library would take
/// longer than for all else.
///
/// Along a border each piece is given the points of those across it. What two have in common
/// then runs once each way and goes; what is left of their lines is woven into new ones
/// (WovenLines). Pieces with a part of a border in common are one.
class Seams {
 public:
  /// The borders are the lines at whole multiples of `side` metres, east and north.
  explicit Seams(double side) : side_(side) {}

  /// Takes a piece of a tile's ground. The points of all pieces must lie on one grid.
  void Take(const ground::Piece& piece);

  /// All ground taken, in connected pieces. To be called once. Yields in between.
  /// Failure: ground::GeometryError when the pieces are not as they should be.
  std::vector<ground::Piece> Join(base::RunHost& host);

 private:
  /// A border, by its own coordinate and whether it runs north, and a place along it.
  using Place = std::tuple<bool, double, double>;
  /// A stretch of a border without points in between, as a piece's line runs along it.
  struct Stretch {
    Place from;  // the lesser end
    std::size_t line = 0;
    std::size_t index = 0;  // in the line
  };
  struct Outline {
    Chain chain;
    std::vector<bool> gone;  // of the stretches
  };

  bool IsOn(double coordinate) const;
  void Take(std::size_t piece, const ground::Line& line);
  void GivePointsAcross(ground::Line& line) const;
  void FindStretches(std::size_t outline, std::vector<Stretch>& stretches) const;
  void DropCommonStretches(base::RunHost& host);
  void FindTouches(base::RunHost& host);
  bool IsKnot(geo::UtmPoint point) const;
  void CutIntoChains(const Outline& outline, std::vector<Chain>& chains) const;
  std::size_t FirstJoined(std::size_t piece);

  double side_;
  std::vector<Place> places_;  // of the points on borders
  std::vector<Outline> outlines_;
  std::vector<geo::UtmPoint> touches_;  // points that lines come by more than once
  std::vector<std::size_t> joinedTo_;   // of each piece; leads to the first of those joined
};

}  // namespace kestrin::net
