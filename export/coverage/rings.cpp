#include "export/coverage/rings.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "export/ground/oneLine.h"
#include "export/ground/planeGeometry.h"
#include "export/ground/sweptGround.h"
#include "export/ground/unfold.h"

namespace kestrin::coverage {
namespace {

constexpr double kAcresPerSquareMetre = 0.000247105381;

void Add(ground::Line& line, geo::UtmPoint point) {
  if (line.empty() || point != line.back()) line.push_back(point);
}

ground::Line LineAround(const PolygonBuilder::Edges& edges) {
  ground::Line line;
  line.reserve(edges.left.size() + edges.right.size() + 1);
  for (const geo::UtmPoint& point : edges.left) Add(line, point);
  // NOLINTNEXTLINE(modernize-loop-convert): Clang 14 does not know the library's reversed view.
  for (auto point = edges.right.rbegin(); point != edges.right.rend(); ++point) Add(line, *point);
  if (!line.empty()) Add(line, line.front());
  return line;
}

bool HasThreePoints(const ground::Line& line) {
  std::size_t distinct = 0;
  const geo::UtmPoint* known[2] = {};
  for (const geo::UtmPoint& point : line) {
    if ((distinct > 0 && point == *known[0]) || (distinct > 1 && point == *known[1])) continue;
    if (distinct == 2) return true;
    known[distinct++] = &point;
  }
  return false;
}

geo::UtmPoint Sum(geo::UtmPoint a, geo::UtmPoint b) {
  return {a.easting + b.easting, a.northing + b.northing};
}

/// The booms by which ground is known, seen from `origin`.
std::vector<ground::Boom> FiniteBooms(const PolygonBuilder::Edges& edges, geo::UtmPoint origin) {
  const geo::UtmPoint back{-origin.easting, -origin.northing};
  std::vector<ground::Boom> booms;
  booms.reserve(edges.left.size());
  for (std::size_t i = 0; i < edges.left.size(); ++i) {
    const ground::Boom boom{Sum(edges.left[i], back), Sum(edges.right[i], back)};
    if (boom.IsFinite()) booms.push_back(boom);
  }
  return booms;
}

/// Some whole metres near a polygon: from there its points have digits enough for what
/// is computed with them, and come back as they were.
geo::UtmPoint OriginNear(const ground::Line& line) {
  for (const geo::UtmPoint& point : line) {
    if (point.IsFinite()) return {std::round(point.easting), std::round(point.northing)};
  }
  return {};
}

/// Ground that is thinner than this, in metres, is what rounding makes of rows in one line.
constexpr double kThinnest = 1e-6;

/// The share of its ground that may be wrong for the sake of speed.
constexpr double kMayBeWrong = 0.002;

double LengthOf(const ground::Line& line) {
  double metres = 0;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    metres += std::sqrt(ground::SquareDistance(line[i], line[i + 1]));
  }
  return metres;
}

}  // namespace

double Ring::Acres() const { return std::fabs(ground::PolygonArea(metres)) * kAcresPerSquareMetre; }

Ring RingMaker::Of(const PolygonBuilder::Edges& edges) {
  const ground::Line line = LineAround(edges);
  if (!HasThreePoints(line)) return {};
  const ground::Clearance clearance = lines_.Of(line);
  Ring ring = Projected(line);
  if (clearance == ground::Clearance::kWide) return ring;
  if (clearance == ground::Clearance::kTight && lines_.IsSimple(ring.degrees)) return ring;
  const geo::UtmPoint origin = OriginNear(line);
  const std::vector<ground::Boom> booms = FiniteBooms(edges, origin);
  const ground::Sweep sweep(booms);
  if (sweep.Total() <= kThinnest * LengthOf(line)) return ring;
  if (booms.size() == edges.left.size()) ring = Unfolded(line, sweep);
  return ring.metres.empty() ? Mended(booms, sweep, origin) : ring;
}

Ring RingMaker::Unfolded(const ground::Line& line, const ground::Sweep& sweep) {
  double mayBeWrong = kMayBeWrong * sweep.Net();
  for (const ground::Patch& patch : sweep.Hidden()) mayBeWrong -= std::fabs(patch.squareMetres);
  if (mayBeWrong <= 0) return {};
  const ground::Line unfolded = ground::Unfold(line, mayBeWrong);
  if (lines_.Of(unfolded) == ground::Clearance::kNone) return {};
  Ring ring = Projected(unfolded);
  return IsSimple(ring) ? ring : Ring();
}

bool RingMaker::IsSimple(const Ring& ring) {
  if (!lines_.IsSimple(ring.metres) || !lines_.IsSimple(ring.degrees)) return false;
  ground::Line back;
  back.reserve(ring.degrees.size());
  for (const geo::GeoPoint& point : ring.degrees) back.push_back(plane_.ToUtm(point));
  return lines_.IsSimple(back);
}

Ring RingMaker::Projected(const ground::Line& line) {
  constexpr std::size_t kTogether = 64;
  std::array<geo::GeoPoint, kTogether> degrees{};
  Ring ring;
  ring.metres.reserve(line.size());
  ring.degrees.reserve(line.size());
  const std::span<const geo::UtmPoint> points(line);
  for (std::size_t i = 0; i < points.size(); i += kTogether) {
    // A whole field can be one ring.
    if (i > 0) host_.Yield();
    const auto some = points.subspan(i, std::min(kTogether, points.size() - i));
    plane_.ToGeo(some, degrees);
    for (std::size_t k = 0; k < some.size(); ++k) {
      // Points a millionth of a millimetre apart can become one.
      if (!ring.degrees.empty() && degrees[k] == ring.degrees.back()) continue;
      ring.metres.push_back(some[k]);
      ring.degrees.push_back(degrees[k]);
    }
  }
  return ring;
}

Ring RingMaker::Mended(const std::vector<ground::Boom>& booms, const ground::Sweep& sweep,
                       geo::UtmPoint origin) {
  const auto projected = [&](ground::Line line) {
    for (geo::UtmPoint& point : line) point = Sum(point, origin);
    return Projected(line);
  };
  ground::Geos geos;
  const ground::Geos::Area swept = ground::SweptGround(geos, booms, sweep, host_);
  // What lies closer together than a projection's last digits can touch in degrees. A
  // grid keeps it apart.
  for (const double grid : {0.0, 0.0001, 0.001, 0.01}) {
    const ground::Geos::Area gridded = geos.OnGrid(swept, grid);
    Ring ring = projected(ground::OneLineAround(geos, gridded));
    if (IsSimple(ring)) return ring;
  }
  return projected(ground::HullAround(geos, booms));
}

}  // namespace kestrin::coverage
