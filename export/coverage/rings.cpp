#include "export/coverage/rings.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "export/ground/oneLine.h"
#include "export/ground/planeGeometry.h"
#include "export/ground/sweptGround.h"

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

/// The booms by which ground is known.
std::vector<ground::Boom> FiniteBooms(const PolygonBuilder::Edges& edges) {
  std::vector<ground::Boom> booms;
  booms.reserve(edges.left.size());
  for (std::size_t i = 0; i < edges.left.size(); ++i) {
    const ground::Boom boom{edges.left[i], edges.right[i]};
    if (boom.IsFinite()) booms.push_back(boom);
  }
  return booms;
}

bool HasGround(const std::vector<ground::Boom>& booms) {
  for (std::size_t i = 0; i + 1 < booms.size(); ++i) {
    if (!ground::Strip(booms[i], booms[i + 1]).Patches().empty()) return true;
  }
  return false;
}

}  // namespace

double Ring::Acres() const { return std::fabs(ground::PolygonArea(metres)) * kAcresPerSquareMetre; }

Ring RingMaker::Of(const PolygonBuilder::Edges& edges) {
  const ground::Line line = LineAround(edges);
  if (!HasThreePoints(line)) return {};
  const ground::Clearance clearance = lines_.Of(line);
  Ring ring = Projected(line);
  if (clearance == ground::Clearance::kWide) return ring;
  if (clearance == ground::Clearance::kTight && IsSimple(ring)) return ring;
  const std::vector<ground::Boom> booms = FiniteBooms(edges);
  return HasGround(booms) ? Mended(booms) : ring;
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

Ring RingMaker::Mended(const std::vector<ground::Boom>& booms) {
  ground::Geos geos;
  const ground::Geos::Area swept = ground::SweptGround(geos, booms, host_);
  // What lies closer together than a projection's last digits can touch in degrees. A
  // grid keeps it apart.
  for (const double grid : {0.0, 0.0001, 0.001, 0.01}) {
    try {
      const ground::Geos::Area gridded = geos.OnGrid(swept, grid);
      Ring ring = Projected(ground::OneLineAround(geos, gridded));
      if (IsSimple(ring)) return ring;
    } catch (const ground::GeometryError&) {
      // The next may do.
    }
  }
  throw ground::GeometryError("no ring");
}

}  // namespace kestrin::coverage
