#include "tests/export/coverage/ringJudge.h"

#include <algorithm>
#include <cmath>

namespace kestrin::test {
namespace {

using Line = std::vector<geo::UtmPoint>;
using ground::Geos;

/// On a grid of metres unions cannot go wrong, where lines nearly coincide.
constexpr double kGrid = 1e-6;
constexpr double kWidest = 100;  // metres, of any machine
constexpr double kSquareMetresToAcres = 0.000247105381;
/// Ground that is thinner than this, in metres, is what rounding makes of none.
constexpr double kThinnest = 1e-6;

/// Degrees in the place of metres, as the library does not tell one from the other.
Line AsLine(const std::vector<geo::GeoPoint>& degrees) {
  Line line;
  for (const geo::GeoPoint& point : degrees) line.push_back({point.longitude, point.latitude});
  return line;
}

bool IsFinite(const Line& line) {
  return std::all_of(line.begin(), line.end(), [](geo::UtmPoint p) { return p.IsFinite(); });
}

/// Positive when it runs counter-clockwise; from the first point, so that no digits are lost.
double SignedArea(const Line& line) {
  double twice = 0;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    twice += (line[i].easting - line[0].easting) * (line[i + 1].northing - line[0].northing) -
             (line[i + 1].easting - line[0].easting) * (line[i].northing - line[0].northing);
  }
  return twice / 2;
}

double Distance(geo::UtmPoint a, geo::UtmPoint b) {
  return std::hypot(a.easting - b.easting, a.northing - b.northing);
}

double Length(const Line& line) {
  double length = 0;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) length += Distance(line[i], line[i + 1]);
  return length;
}

double Widest(const LiteralPolygon& polygon) {
  double widest = 0;
  for (std::size_t i = 0; i < polygon.left.size(); ++i) {
    widest = std::max(widest, Distance(polygon.left[i], polygon.right[i]));
  }
  return widest;
}

bool AnyEqualNeighbours(const std::vector<geo::GeoPoint>& line) {
  return std::adjacent_find(line.begin(), line.end()) != line.end();
}

}  // namespace

void GroundTally::Add(const GroundTally& other) {
  covered += other.covered;
  wrong += other.wrong;
}

void Verdict::Add(const Verdict& other) {
  faults.insert(faults.end(), other.faults.begin(), other.faults.end());
  rings += other.rings;
  all.Add(other.all);
  changed.Add(other.changed);
}

std::string Verdict::Text() const {
  constexpr std::size_t kShown = 20;
  std::string text = std::to_string(faults.size()) + " faults\n";
  for (std::size_t i = 0; i < std::min(kShown, faults.size()); ++i) text += faults[i] + "\n";
  return text;
}

Verdict RingJudge::Judge(const std::string& job, const std::vector<LiteralRow>& rows,
                         const std::vector<WrittenRing>& rings) {
  Verdict verdict;
  const std::vector<LiteralPolygon> polygons = LiteralPolygons(rows).Polygons();
  if (polygons.size() != rings.size()) {
    verdict.faults.push_back(job + ": " + std::to_string(rings.size()) + " rings of " +
                             std::to_string(polygons.size()) + " polygons");
    return verdict;
  }
  for (std::size_t k = 0; k < rings.size(); ++k) {
    Judge(job + ", ring " + std::to_string(k) + ": ", polygons[k], rings[k], verdict);
  }
  return verdict;
}

void RingJudge::Judge(const std::string& name, const LiteralPolygon& polygon,
                      const WrittenRing& ring, Verdict& verdict) {
  if (ring.degrees.size() < 3 || ring.degrees.front() != ring.degrees.back()) {
    verdict.faults.push_back(name + "not closed");
    return;
  }
  if (!IsFinite(polygon.ring)) return;
  const bool crossesNothing =
      WhyUnfit(polygon.ring).empty() && WhyUnfit(AsLine(Degrees(polygon.ring))).empty();
  // What a line that crosses nothing encloses was covered for certain.
  double covered = crossesNothing ? std::fabs(SignedArea(polygon.ring)) : 0;
  Geos::Area ground;
  if (asked_ == Asked::kAllGround || !(covered > kThinnest * Length(polygon.ring))) {
    ground = Ground(polygon);
    covered = geos_.SquareMetres(ground);
  }
  if (!(covered > kThinnest * Length(polygon.ring))) return;
  ++verdict.rings;
  const std::string fault = FaultOf(polygon, ring, covered, crossesNothing);
  if (!fault.empty()) verdict.faults.push_back(name + fault);
  if (Widest(polygon) > kWidest || ring.degrees.size() < 4) return;
  const GroundTally tally{covered, ground ? Difference(ground, Metres(ring.degrees)) : 0};
  verdict.all.Add(tally);
  if (!crossesNothing) verdict.changed.Add(tally);
}

std::string RingJudge::FaultOf(const LiteralPolygon& polygon, const WrittenRing& ring,
                               double covered, bool crossesNothing) {
  if (crossesNothing && ring.degrees != Degrees(polygon.ring)) {
    return "crosses nothing, and is another";
  }
  if (!crossesNothing) {
    const std::string fault = FaultOfShape(ring);
    if (!fault.empty()) return fault;
  }
  const double area = SignedArea(Metres(ring.degrees));
  if (area > 0 && SignedArea(polygon.ring) < -0.01 * covered) return "counter-clockwise";
  const double acres = std::fabs(area) * kSquareMetresToAcres;
  if (!(std::fabs(acres - ring.acres) <= ring.acresWithin)) {
    return std::to_string(ring.acres) + " acres, and is " + std::to_string(acres);
  }
  return "";
}

std::string RingJudge::FaultOfShape(const WrittenRing& ring) {
  if (AnyEqualNeighbours(ring.degrees)) return "two equal points in a row";
  std::string fault = WhyUnfit(AsLine(ring.degrees));
  if (!fault.empty()) return "in degrees: " + fault;
  fault = WhyUnfit(Metres(ring.degrees));
  if (!fault.empty()) return "in metres from degrees: " + fault;
  if (!ring.metres.empty()) fault = WhyUnfit(ring.metres);
  return fault.empty() ? "" : "in metres: " + fault;
}

Geos::Area RingJudge::Ground(const LiteralPolygon& polygon) {
  std::vector<Geos::Area> strips;
  for (std::size_t i = 0; i + 1 < polygon.left.size(); ++i) {
    // The inside of a bow tie, where valid areas are made of its line, is its two triangles.
    strips.push_back(
        MadeValid(geos_.Inside(Line{polygon.left[i], polygon.left[i + 1], polygon.right[i + 1],
                                    polygon.right[i], polygon.left[i]})));
  }
  return geos_.UnionOnGrid(geos_.Collection(std::move(strips)), kGrid);
}

double RingJudge::Difference(const Geos::Area& area, const Line& line) {
  const Geos::Area inside = MadeValid(geos_.Inside(line));
  return geos_.SquareMetres(
      geos_.Own(GEOSSymDifferencePrec_r(geos_.Handle(), area.get(), inside.get(), kGrid)));
}

Geos::Area RingJudge::MadeValid(Geos::Area area) {
  if (geos_.IsValid(area)) return area;
  area = geos_.Own(GEOSMakeValid_r(geos_.Handle(), area.get()));
  const int type = GEOSGeomTypeId_r(geos_.Handle(), area.get());
  if (type == GEOS_POLYGON || type == GEOS_MULTIPOLYGON) return area;
  // Lines are left where it has no inside; this takes them away.
  return geos_.Own(GEOSBuffer_r(geos_.Handle(), area.get(), 0, 1));
}

std::string RingJudge::WhyUnfit(const Line& line) {
  if (line.size() < 4) return "fewer than three points";
  if (!IsFinite(line)) return "not finite";
  const Geos::Area area = geos_.Inside(line);
  if (geos_.IsValid(area)) {
    return GEOSisSimple_r(geos_.Handle(), area.get()) == 1 ? "" : "not simple";
  }
  char* reason = GEOSisValidReason_r(geos_.Handle(), area.get());
  const std::string text = reason == nullptr ? "not valid" : reason;
  GEOSFree_r(geos_.Handle(), reason);
  return text;
}

std::vector<geo::GeoPoint> RingJudge::Degrees(const Line& line) const {
  std::vector<geo::GeoPoint> degrees(line.size());
  projection_.ToGeo(line, degrees);
  return degrees;
}

Line RingJudge::Metres(const std::vector<geo::GeoPoint>& line) const {
  Line metres;
  for (const geo::GeoPoint& point : line) metres.push_back(projection_.ToUtm(point));
  return metres;
}

}  // namespace kestrin::test
