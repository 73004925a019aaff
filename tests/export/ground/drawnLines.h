#pragma once

#include <cmath>
#include <utility>
#include <vector>

#include "base/loopYield.h"
#include "export/ground/geos.h"
#include "export/ground/planeGeometry.h"
#include "export/ground/strip.h"
#include "export/ground/sweep.h"
#include "export/ground/testedLine.h"

namespace kestrin::test {

/// The closed line around points given without their last.
inline ground::Line Closed(ground::Line points) {
  points.push_back(points.front());
  return points;
}

/// A closed rectangle, clockwise from its lower left corner.
inline ground::Line Rectangle(double west, double south, double east, double north) {
  return Closed({{west, south}, {west, north}, {east, north}, {east, south}});
}

/// A closed line as it is tested.
inline ground::TestedLine Tested(const ground::Line& closed, double longest = 0) {
  ground::TestedLine line;
  line.Restart(closed.size(), longest);
  for (std::size_t i = 0; i + 1 < closed.size(); ++i) line.Add(closed[i]);
  line.Close();
  return line;
}
inline ground::Clearance ClearanceOf(const ground::Line& closed, double longest = 0) {
  return Tested(closed, longest).Kept();
}

inline double SquareMetresIn(const ground::Line& closed) {
  return std::fabs(ground::SignedArea(closed));
}

/// The boom of a vehicle that looks north, in metres around its middle.
inline ground::Boom Across(double northing, double left = -5, double right = 5) {
  return {{left, northing}, {right, northing}};
}

/// Booms across the way at one northing after the other, ten metres wide.
inline std::vector<ground::Boom> BoomsAt(const std::vector<double>& northings) {
  std::vector<ground::Boom> booms;
  for (const double northing : northings) booms.push_back(Across(northing));
  return booms;
}

/// What booms swept, with nobody to yield to.
inline ground::Sweep SweepOf(const std::vector<ground::Boom>& booms) {
  base::LoopYield nobody([] {});
  return ground::Sweep(booms, nobody);
}

/// Square metres in one of two areas alone.
inline double Between(ground::Geos& geos, const ground::Geos::Area& a,
                      const ground::Geos::Area& b) {
  return geos.SquareMetres(geos.Difference(a, b)) + geos.SquareMetres(geos.Difference(b, a));
}

}  // namespace kestrin::test
