#pragma once

#include <vector>

#include "export/coverage/swath.h"

namespace kestrin::test {

struct LiteralRow {
  coverage::SwathRow row;
  bool begins = false;
};

/// The rows of one polygon, end by end, and the ring they make when nothing is taken out.
struct LiteralPolygon {
  std::vector<geo::UtmPoint> left;
  std::vector<geo::UtmPoint> right;
  std::vector<geo::UtmPoint> ring;
};

/// The polygons of a list of rows, made slowly step by step with lists over all rows
/// that count from 1: no index, no early end, no ring in place of the one drawn, and no
/// geometry but its own.
struct LiteralPolygons {
  std::vector<geo::UtmPoint> leftEdge = {geo::UtmPoint{}};
  std::vector<geo::UtmPoint> rightEdge = {geo::UtmPoint{}};
  std::vector<geo::UtmPoint> outline = {geo::UtmPoint{}};
  std::vector<int> starts{0};

  explicit LiteralPolygons(const std::vector<LiteralRow>& rows);

  /// The polygons whose rings are written, and these rings.
  std::vector<LiteralPolygon> Polygons() const;
  std::vector<std::vector<geo::UtmPoint>> Rings() const;
};

/// Whether any two segments of the edges or of the lines that close the ring at its
/// start and end properly cross, each pair compared.
bool RingCrossesItself(const std::vector<geo::UtmPoint>& ring);

}  // namespace kestrin::test
