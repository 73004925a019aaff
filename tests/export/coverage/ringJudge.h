#pragma once

#include <string>
#include <vector>

#include "export/ground/geos.h"
#include "geo/utmProjection.h"
#include "tests/export/coverage/literalCoverage.h"

namespace kestrin::test {

/// A ring as it was written.
struct WrittenRing {
  std::vector<geo::GeoPoint> degrees;
  double acres = 0;
  double acresWithin = 0.00501;       ///< how far rounding may have moved the acres
  std::vector<geo::UtmPoint> metres;  ///< the ring before it was projected, when that is known
};

/// What a job's rings turned out to be.
struct Verdict {
  std::vector<std::string> faults;  ///< a line each, with the polygon's number from 0
  int rings = 0;                    ///< that have ground
  double ground = 0;                ///< square metres, each polygon for itself
  double wrong = 0;  ///< of these, what a ring leaves out, and what it takes in beyond them

  /// The part of the ground that is wrong.
  double Share() const { return ground > 0 ? wrong / ground : 0; }
  /// All faults in one text, empty when there are none.
  std::string Text() const;
};

/// How much of the ground may be wrong: slits and necks have a width.
inline constexpr double kWrongShare = 0.005;

/// Judges coverage rings with GEOS, as a program that reads the set would, and from the
/// job's rows alone, sharing nothing with the code that makes the rings:
///
/// - there is a ring for each polygon that the literal cuts give, in their order;
/// - it is closed, and no two points in a row are equal in the degrees written;
/// - it is valid and simple in these degrees, in the metres they stand for, and in its own;
/// - it runs clockwise where the vehicle drove forward;
/// - the acres are those of the ring;
/// - a polygon whose own outline is all this already is written as that outline, to the bit;
/// - its ground is the union of the quadrilaterals between consecutive rows, where a bow
///   tie is its two triangles.
///
/// Polygons without ground (an implement of no width, rows in one line), and those with
/// points that are not finite, need only have their closed ring. Where the widths have added
/// up beyond every machine, the ground is not asked.
class RingJudge {
 public:
  /// Of a job whose plane is that of a UTM zone; the projection must outlive the judge.
  explicit RingJudge(const geo::UtmProjection& projection) : projection_(projection) {}

  Verdict Judge(const std::vector<LiteralRow>& rows, const std::vector<WrittenRing>& rings);

  /// The ground of a polygon.
  ground::Geos::Area Ground(const LiteralPolygon& polygon);

  /// How far the area inside a line is from an area: square metres in one of the two alone.
  double Difference(const ground::Geos::Area& area, const std::vector<geo::UtmPoint>& line);

  /// Why a closed line cannot be the ring of a polygon; empty when it can.
  std::string WhyUnfit(const std::vector<geo::UtmPoint>& line);

 private:
  std::string FaultOf(const LiteralPolygon& polygon, double ground, const WrittenRing& ring);
  std::string FaultOfShape(const WrittenRing& ring);
  void JudgeGround(const LiteralPolygon& polygon, const ground::Geos::Area& ground,
                   const WrittenRing& ring, Verdict& verdict);

  std::vector<geo::GeoPoint> Degrees(const std::vector<geo::UtmPoint>& line) const;
  std::vector<geo::UtmPoint> Metres(const std::vector<geo::GeoPoint>& line) const;
  ground::Geos::Area MadeValid(ground::Geos::Area area);

  const geo::UtmProjection& projection_;
  ground::Geos geos_;
};

}  // namespace kestrin::test
