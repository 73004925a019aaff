#pragma once

#include <string>

#include "export/ground/geos.h"

namespace kestrin::test {

/// The ground of a job by the shortest rule there is: the union of the quadrilaterals that each
/// section lays between two rows, by the geometry library alone. UTM metres.
struct LiteralNet {
  ground::Geos::Area ground;
  double sweptSquareMetres = 0;
};
LiteralNet LiteralNetOf(const std::string& jobPath, bool allSections, ground::Geos& geos);

/// The ground of a net set, back in UTM metres: of records, each valid in degrees.
/// Failure: a record that is not valid fails the test.
ground::Geos::Area GroundOfSet(const std::string& basePath, const std::string& jobPath,
                               ground::Geos& geos);

/// How much of the first area two differ by.
double PartDiffering(const ground::Geos::Area& one, const ground::Geos::Area& other,
                     ground::Geos& geos);

}  // namespace kestrin::test
