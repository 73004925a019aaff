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
  double acresWithin = 0.00501;         ///< how far rounding may have moved the acres
  std::vector<geo::UtmPoint> metres{};  ///< the ring before it was projected, when that is known
};

/// Ground of polygons, each for itself, in square metres.
struct GroundTally {
  double covered = 0;
  double wrong = 0;  ///< what the rings leave out of it, and what they take in beyond it

  void Add(const GroundTally& other);
  /// The part that is wrong.
  double Share() const { return covered > 0 ? wrong / covered : 0; }
};

/// How much may be wrong: slits and necks have a width.
inline constexpr double kWrongShare = 0.005;

/// Whose ground is compared with that inside the ring.
enum class Asked {
  kChangedGround,  ///< that of polygons whose ring is not as the rows draw it; much faster
  kAllGround,
};

/// What a job's rings turned out to be.
struct Verdict {
  std::vector<std::string> faults;  ///< a line each, with the polygon's number from 0
  int rings = 0;                    ///< that have ground
  GroundTally
      all;  ///< where not all ground was asked, what the other rings enclose counts as right
  /// Of the rings that are not as the rows draw them. The others may not be changed, also
  /// where sweeps forth and back leave a line that crosses nothing and yet is not theirs.
  GroundTally changed;

  void Add(const Verdict& other);
  /// The first faults, a line each.
  std::string Text() const;
};

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
  explicit RingJudge(const geo::UtmProjection& projection, Asked asked = Asked::kChangedGround)
      : projection_(projection), asked_(asked) {}

  /// `job` is what faults are named after.
  Verdict Judge(const std::string& job, const std::vector<LiteralRow>& rows,
                const std::vector<WrittenRing>& rings);

  /// The ground of a polygon.
  ground::Geos::Area Ground(const LiteralPolygon& polygon);

  /// How far the area inside a line is from an area: square metres in one of the two alone.
  double Difference(const ground::Geos::Area& area, const std::vector<geo::UtmPoint>& line);

  /// Why a closed line cannot be the ring of a polygon; empty when it can.
  std::string WhyUnfit(const std::vector<geo::UtmPoint>& line);

 private:
  void Judge(const std::string& name, const LiteralPolygon& polygon, const WrittenRing& ring,
             Verdict& verdict);
  std::string FaultOf(const LiteralPolygon& polygon, const WrittenRing& ring, double covered,
                      bool crossesNothing);
  std::string FaultOfShape(const WrittenRing& ring);

  std::vector<geo::GeoPoint> Degrees(const std::vector<geo::UtmPoint>& line) const;
  std::vector<geo::UtmPoint> Metres(const std::vector<geo::GeoPoint>& line) const;
  ground::Geos::Area MadeValid(ground::Geos::Area area);

  const geo::UtmProjection& projection_;
  Asked asked_;
  ground::Geos geos_;
};

}  // namespace kestrin::test
