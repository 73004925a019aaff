#include "export/coverage/polygonRing.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "export/ground/oneLine.h"
#include "export/ground/planeGeometry.h"
#include "export/ground/sweptGround.h"
#include "export/ground/unfold.h"
#include "geo/box.h"

namespace kestrin::coverage {
namespace {

using Edges = PolygonBuilder::Edges;
using ground::Clearance;

constexpr double kAcresPerSquareMetre = 0.000247105381;

/// Ground that is thinner than this, in metres, is what rounding makes of rows in one line.
constexpr double kThinnest = 1e-6;

/// The share of a polygon's ground that may be wrong for the sake of speed, and what a share
/// of all polygons' ground so far allows beyond that, up to half a square metre: where a
/// vehicle stands and jitters there are polygons of a hand's breadth by the dozen.
constexpr double kMayBeWrong = 0.002;
constexpr double kSaved = 0.001;
constexpr double kMostOfOne = 0.5;

/// The length of the longest segment.
double Longest(Ring line) {
  double square = 0;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    square = std::max(square, ground::SquareDistance(line[i], line[i + 1]));
  }
  return std::sqrt(square);
}

double Longest(const Edges& edges) {
  const geo::UtmPoint first[] = {edges.left.front(), edges.right.front()};
  const geo::UtmPoint last[] = {edges.left.back(), edges.right.back()};
  return std::max({Longest(edges.left), Longest(edges.right), Longest(first), Longest(last)});
}

void DrawAround(const Edges& edges, ground::TestedLine& line, base::LoopYield& yield) {
  line.Restart(edges.left.size() + edges.right.size() + 1, Longest(edges));
  for (const geo::UtmPoint& point : edges.left) {
    yield.Step();
    line.Add(point);
  }
  for (std::size_t i = edges.right.size(); i-- > 0;) {
    yield.Step();
    if (i > 0 || edges.right[i] != edges.left.front()) line.Add(edges.right[i]);
  }
  line.Close();
}

void Redraw(Ring ring, ground::TestedLine& line, double longest, base::LoopYield& yield) {
  line.Restart(ring.size(), longest);
  // In degrees some points before the last can be where the ring begins, too.
  while (ring.size() > 1 && ring.back() == ring.front()) ring = ring.first(ring.size() - 1);
  for (const geo::UtmPoint& point : ring) {
    yield.Step();
    line.Add(point);
  }
  line.Close();
}

bool HasThreePoints(Ring ring) {
  std::size_t distinct = 0;
  const geo::UtmPoint* known[2] = {};
  for (const geo::UtmPoint& point : ring) {
    if ((distinct > 0 && point == *known[0]) || (distinct > 1 && point == *known[1])) continue;
    if (distinct == 2) return true;
    known[distinct++] = &point;
  }
  return false;
}

geo::UtmPoint Sum(geo::UtmPoint a, geo::UtmPoint b) {
  return {a.easting + b.easting, a.northing + b.northing};
}

/// Whether a point can be one on Earth. The geometry library does not survive all others.
bool IsPlace(geo::UtmPoint point) {
  constexpr double kFarthest = 1e8;
  return std::fabs(point.easting) < kFarthest && std::fabs(point.northing) < kFarthest;
}

/// Some whole metres near a polygon: from there its points have digits enough for what
/// is computed with them, and come back as they were.
geo::UtmPoint OriginNear(Ring ring) {
  const auto point = std::ranges::find_if(ring, IsPlace);
  if (point == ring.end()) return {};
  return {std::round(point->easting), std::round(point->northing)};
}

/// The booms by which ground is known, seen from `origin`.
std::vector<ground::Boom> BoomsInPlace(const Edges& edges, geo::UtmPoint origin) {
  const geo::UtmPoint back{-origin.easting, -origin.northing};
  std::vector<ground::Boom> booms;
  booms.reserve(edges.left.size());
  for (std::size_t i = 0; i < edges.left.size(); ++i) {
    if (!IsPlace(edges.left[i]) || !IsPlace(edges.right[i])) continue;
    booms.push_back({Sum(edges.left[i], back), Sum(edges.right[i], back)});
  }
  return booms;
}

template <class Try>
bool Succeeds(Try attempt) {
  try {
    return attempt();
  } catch (const ground::GeometryError&) {
    return false;
  }
}

/// Turns a closed line clockwise, and until it begins at the point nearest to another.
void BeginAt(ground::Line& line, geo::UtmPoint point) {
  if (line.empty()) return;
  if (ground::SignedArea(line) > 0) std::ranges::reverse(line);
  line.pop_back();
  // Clang 14 does not know what the library's own rotation of a range returns.
  const auto nearest = std::ranges::min_element(
      line, {}, [&](const geo::UtmPoint& other) { return ground::SquareDistance(other, point); });
  std::rotate(line.begin(), nearest, line.end());
  line.push_back(line.front());
}

}  // namespace

double AcresIn(Ring ring) { return std::fabs(ground::PolygonArea(ring)) * kAcresPerSquareMetre; }

void PolygonRing::Draw(const Edges& edges, double& saved) {
  DrawAround(edges, drawn_, yield_);
  const Ring ring = drawn_.Points();
  if (!HasThreePoints(ring)) return;
  shown_ = ring;
  const double squareMetres = std::fabs(ground::SignedArea(ring));
  if (std::isfinite(squareMetres)) saved += kSaved * squareMetres;
  if (drawn_.Kept() == Clearance::kWide) return;
  if (drawn_.Kept() == Clearance::kTight && IsSimpleInDegrees(drawn_, false)) return;
  const geo::UtmPoint origin = OriginNear(ring);
  // Not kept, as the booms take as much memory as the ring that is unfolded.
  const ground::Sweep sweep(BoomsInPlace(edges, origin), yield_);
  if (sweep.total <= kThinnest * sweep.length) return;
  if (std::ranges::all_of(ring, IsPlace) && Unfold(sweep, saved)) {
    shown_ = ring_;
  } else {
    unmade_ = {origin, BoomsInPlace(edges, origin), sweep};
  }
}

void PolygonRing::Do() {
  if (!unmade_) return;
  const Ground ground = *std::exchange(unmade_, {});
  if (Unite(ground)) shown_ = ring_;
}

bool PolygonRing::Unfold(const ground::Sweep& sweep, double& saved) {
  const double share = std::min(saved, kMostOfOne);
  double mayBeWrong = kMayBeWrong * sweep.net + share - sweep.hiddenGround;
  if (mayBeWrong <= 0) return false;
  if (!IsFit(ground::Unfold(drawn_.Points(), mayBeWrong, yield_))) return false;
  saved -= std::max(0.0, share - mayBeWrong);
  return true;
}

bool PolygonRing::Unite(const Ground& ground) {
  ground::Geos geos;
  const auto isFit = [&](ground::Line line) {
    for (geo::UtmPoint& point : line) point = Sum(point, ground.origin);
    return IsFit(std::move(line));
  };
  const auto isAround = [&](const ground::Geos::Area& swept) {
    // What lies closer together than a projection's last digits can touch in degrees. A
    // grid keeps it apart.
    return std::ranges::any_of(std::array{0.0, 0.0001, 0.001, 0.01}, [&](double grid) {
      return isFit(ground::OneLineAround(geos, geos.OnGrid(swept, grid)));
    });
  };
  const auto ofSweep = [&] {
    return isAround(ground::SweptGround(geos, ground.booms, ground.sweep,
                                        kMayBeWrong * ground.sweep.net, yield_));
  };
  // The library may fail. A ring never gets lost.
  return Succeeds(ofSweep) ||
         Succeeds([&] { return isFit(ground::HullAround(geos, ground.booms)); });
}

bool PolygonRing::IsFit(ground::Line ring) {
  ring_ = std::move(ring);
  BeginAt(ring_, drawn_.Points().front());
  Redraw(ring_, tested_, Longest(ring_), yield_);
  return tested_.Kept() == Clearance::kWide ||
         (tested_.Kept() == Clearance::kTight && IsSimpleInDegrees(tested_, true));
}

bool PolygonRing::DegreesOnlyBend(Ring line) const {
  constexpr double kMostAcross = 100'000;
  constexpr double kEastEnd = 1'000'000;
  // Farther north a parallel bends more than TestedLine allows a line to.
  constexpr double kNorthEnd = 75;
  // So far west and east that within 100 km of there longitudes do not begin anew.
  constexpr double kSeam = 170;
  geo::Box box;
  for (const geo::UtmPoint& point : line) box.Widen(point);
  if (box.xMax - box.xMin > kMostAcross || box.yMax - box.yMin > kMostAcross) return false;
  if (box.xMin < 0 || box.xMax > kEastEnd) return false;
  const geo::GeoPoint corner = projection_.ToGeo({box.xMin, box.yMin});
  return std::fabs(corner.latitude) < kNorthEnd && std::fabs(corner.longitude) < kSeam;
}

bool PolygonRing::IsSimpleInDegrees(const ground::TestedLine& line, bool andBack) {
  const auto inDegrees = [this](geo::UtmPoint point) {
    const geo::GeoPoint degrees = projection_.ToGeo(point);
    return geo::UtmPoint{degrees.longitude, degrees.latitude};
  };
  const auto inMetres = [this](geo::UtmPoint degrees) {
    return projection_.ToUtm({.longitude = degrees.easting, .latitude = degrees.northing});
  };
  const auto andInMetres = [&](geo::UtmPoint point) { return inMetres(inDegrees(point)); };
  if (DegreesOnlyBend(line.Points()) && line.IsSimpleIn(inDegrees) &&
      (!andBack || line.IsSimpleIn(andInMetres))) {
    return true;
  }

  // A copy, as the line may be the one that is drawn anew here.
  ground::Line points = line.Points();
  const auto isSimpleThere = [&](auto projected) {
    for (geo::UtmPoint& point : points) {
      yield_.Step();
      point = projected(point);
    }
    Redraw(points, tested_, 0, yield_);
    return tested_.Kept() != Clearance::kNone;
  };
  return isSimpleThere(inDegrees) && (!andBack || isSimpleThere(inMetres));
}

}  // namespace kestrin::coverage
