#pragma once

#include <tuple>
#include <vector>

#include "export/ground/geos.h"

namespace kestrin::net {

/// Joins the ground of square tiles along their borders, in about the time that sorting its
/// points takes: a job's outline can have millions, and to unite them would take far longer.
///
/// What the outlines on both sides of a border have in common runs once each way and goes. All
/// else is cut where lines meet, and what it encloses is the ground.
class Seams {
 public:
  /// The borders are the lines at whole multiples of `side` metres, east and north. The library
  /// must outlive it.
  Seams(ground::Geos& geos, double side) : geos_(geos), side_(side) {}

  /// Takes all ground of a tile, which must lie within its borders. Its pieces may touch each
  /// other in points of both only.
  void Take(const std::vector<ground::Piece>& tile);

  /// All ground taken, in connected pieces. To be called once.
  /// Failure: ground::GeometryError.
  std::vector<ground::Piece> Join();

 private:
  /// Where lines begin and end on a border: whether that runs north, its own coordinate, the
  /// place along it, and by how much more lines run up it than down from there on.
  using End = std::tuple<bool, double, double, int>;

  bool IsOn(double coordinate) const;
  void Take(const ground::Line& line, const ground::Line& touches);
  bool TakeBorder(geo::UtmPoint from, geo::UtmPoint to);

  ground::Geos& geos_;
  double side_;
  std::vector<End> ends_;
  std::vector<ground::Geos::Area> ways_;  // cut where they meet, without those on borders
};

}  // namespace kestrin::net
