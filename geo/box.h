#pragma once

namespace kestrin::geo {

/// The bounds of the points taken in so far; 0, 0, 0, 0 before the first.
struct Box {
  double xMin = 0;
  double yMin = 0;
  double xMax = 0;
  double yMax = 0;
  bool empty = true;

  /// The first point sets all four bounds; a later one lowers a minimum or else
  /// raises a maximum.
  void Widen(double x, double y) {
    if (empty) {
      xMin = xMax = x;
      yMin = yMax = y;
      empty = false;
      return;
    }
    if (x < xMin) {
      xMin = x;
    } else if (x > xMax) {
      xMax = x;
    }
    if (y < yMin) {
      yMin = y;
    } else if (y > yMax) {
      yMax = y;
    }
  }
};

}  // namespace kestrin::geo
