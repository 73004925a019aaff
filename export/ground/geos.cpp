#include "export/ground/geos.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

#include "export/ground/planeGeometry.h"

namespace kestrin::ground {
namespace {

static_assert(sizeof(geo::UtmPoint) == 2 * sizeof(double), "points are handed over as pairs");

/// Lines closer together than this are one, or the library may take one side of them for
/// the other without a word.
constexpr double kGrid = 1e-6;
constexpr std::size_t kMany = 256;

int TurnBack(double* x, double* y, void* quarters) {
  const geo::UtmPoint point = QuarterTurned({*x, *y}, 4 - *static_cast<int*>(quarters));
  *x = point.easting;
  *y = point.northing;
  return 1;
}

}  // namespace

Geos::Geos() : handle_(GEOS_init_r()) {
  if (handle_ == nullptr) throw GeometryError("the geometry library does not start");
  GEOSContext_setErrorMessageHandler_r(handle_, &Geos::Remember, this);
}

Geos::~Geos() { GEOS_finish_r(handle_); }

void Geos::Remember(const char* words, void* self) { static_cast<Geos*>(self)->words_ = words; }

Geos::Area Geos::Own(GEOSGeometry* geometry) {
  if (geometry == nullptr) throw GeometryError(words_);
  return {geometry, Destroy{handle_}};
}

GEOSCoordSequence* Geos::PointsOf(std::span<const geo::UtmPoint> line) {
  GEOSCoordSequence* points = GEOSCoordSeq_copyFromBuffer_r(
      handle_, &line.front().easting, static_cast<unsigned>(line.size()), 0, 0);
  if (points == nullptr) throw GeometryError(words_);
  return points;
}

GEOSGeometry* Geos::RingOf(std::span<const geo::UtmPoint> line) {
  // Takes the points, also when it fails.
  GEOSGeometry* ring = GEOSGeom_createLinearRing_r(handle_, PointsOf(line));
  if (ring == nullptr) throw GeometryError(words_);
  return ring;
}

bool Geos::IsClockwise(const GEOSCoordSequence* points) {
  char counterClockwise = 0;
  if (points == nullptr || GEOSCoordSeq_isCCW_r(handle_, points, &counterClockwise) == 0) {
    throw GeometryError(words_);
  }
  return counterClockwise == 0;
}

Geos::Area Geos::Inside(std::span<const geo::UtmPoint> line) {
  return Own(GEOSGeom_createPolygon_r(handle_, RingOf(line), nullptr, 0));
}

Geos::Area Geos::Inside(const Piece& piece) {
  std::vector<Area> lines;
  lines.push_back(Own(RingOf(piece.shell)));
  for (const Line& hole : piece.holes) lines.push_back(Own(RingOf(hole)));
  std::vector<GEOSGeometry*> given;
  given.reserve(lines.size());
  for (Area& line : lines) given.push_back(line.release());
  return Own(GEOSGeom_createPolygon_r(handle_, given.front(), given.data() + 1,
                                      static_cast<unsigned>(given.size() - 1)));
}

Geos::Area Geos::Mended(const Area& area) {
  const std::unique_ptr<GEOSMakeValidParams, std::function<void(GEOSMakeValidParams*)>> how(
      GEOSMakeValidParams_create_r(handle_),
      [this](GEOSMakeValidParams* given) { GEOSMakeValidParams_destroy_r(handle_, given); });
  GEOSMakeValidParams_setMethod_r(handle_, how.get(), GEOS_MAKE_VALID_STRUCTURE);
  return Own(GEOSMakeValidWithParams_r(handle_, area.get(), how.get()));
}

Geos::Area Geos::WoundAbout(const Line& line) {
  // A buffer of no width keeps what lies on the inner side of a line. Which side that is
  // the library reads off the line's northernmost point. Where a loop lies there that runs the
  // other way round it would keep the loops and drop the ground: then the whole is turned
  // by quarters of a circle, until another point is the northernmost. That changes no digit.
  Line turned = line;
  for (int quarter = 0; quarter < 4; ++quarter) {
    const Area area = Inside(turned);
    if (IsClockwise(GEOSGeom_getCoordSeq_r(handle_, GEOSGetExteriorRing_r(handle_, area.get())))) {
      Area inner = Own(GEOSBuffer_r(handle_, area.get(), 0, 1));
      if (quarter == 0) return inner;
      return Own(GEOSGeom_transformXY_r(handle_, inner.get(), &TurnBack, &quarter));
    }
    for (geo::UtmPoint& point : turned) point = QuarterTurned(point, 1);
  }
  return {};
}

Geos::Area Geos::Collection(std::vector<Area> areas) {
  std::vector<GEOSGeometry*> given;
  given.reserve(areas.size());
  for (Area& area : areas) given.push_back(area.release());
  return Own(GEOSGeom_createCollection_r(handle_, GEOS_GEOMETRYCOLLECTION, given.data(),
                                         static_cast<unsigned>(given.size())));
}

Geos::Area Geos::Union(std::vector<Area> areas) {
  const bool many = areas.size() > kMany;
  const Area all = Collection(std::move(areas));
  if (!many) return UnionOnGrid(all, kGrid);
  // Many are rounded point by point instead, at a small part of the price. In the rare case
  // that the library then finds what cannot be, the grid helps.
  const Area rounded = Own(GEOSGeom_setPrecision_r(handle_, all.get(), kGrid, GEOS_PREC_NO_TOPO));
  if (GEOSGeometry* both = GEOSUnaryUnion_r(handle_, rounded.get())) return Own(both);
  return UnionOnGrid(all, kGrid);
}

Geos::Area Geos::UnionOnGrid(const Area& collection, double metres) {
  return Own(GEOSUnaryUnionPrec_r(handle_, collection.get(), metres));
}

Geos::Area Geos::Difference(const Area& from, const Area& what) {
  return Own(GEOSDifferencePrec_r(handle_, from.get(), what.get(), kGrid));
}

Geos::Area Geos::Way(std::span<const geo::UtmPoint> line) {
  return Own(GEOSGeom_createLineString_r(handle_, PointsOf(line)));
}

Geos::Area Geos::Enclosed(const std::vector<Area>& ways) {
  std::vector<const GEOSGeometry*> given;
  given.reserve(ways.size());
  for (const Area& way : ways) given.push_back(way.get());
  return Own(GEOSPolygonize_valid_r(handle_, given.data(), static_cast<unsigned>(given.size())));
}

Geos::Prepared Geos::Prepare(const Area& area) {
  Prepared prepared(GEOSPrepare_r(handle_, area.get()), DestroyPrepared{handle_});
  if (!prepared) throw GeometryError(words_);
  return prepared;
}

bool Geos::Covers(const Prepared& area, const Area& other) {
  const char answer = GEOSPreparedCovers_r(handle_, area.get(), other.get());
  if (answer > 1) throw GeometryError(words_);
  return answer == 1;
}

bool Geos::AreWithin(const Area& one, const Area& other, double metres) {
  const Prepared prepared = Prepare(one);
  const char answer = GEOSPreparedDistanceWithin_r(handle_, prepared.get(), other.get(), metres);
  if (answer > 1) throw GeometryError(words_);
  return answer == 1;
}

Geos::Area Geos::HullOf(const Line& points, double around) {
  const Area line = Way(points);
  const Area hull = Own(GEOSConvexHull_r(handle_, line.get()));
  return Own(GEOSBuffer_r(handle_, hull.get(), around, 1));
}

Geos::Area Geos::OnGrid(const Area& area, double metres) {
  return Own(GEOSGeom_setPrecision_r(handle_, area.get(), metres, 0));
}

std::vector<std::array<geo::UtmPoint, 2>> Geos::WaysTo(const Area& area,
                                                       std::span<const Area> others) {
  const Prepared prepared = Prepare(area);
  std::vector<std::array<geo::UtmPoint, 2>> ways(others.size());
  for (std::size_t i = 0; i < others.size(); ++i) {
    GEOSCoordSequence* points =
        GEOSPreparedNearestPoints_r(handle_, prepared.get(), others[i].get());
    if (points == nullptr) throw GeometryError(words_);
    GEOSCoordSeq_copyToBuffer_r(handle_, points, &ways[i].front().easting, 0, 0);
    GEOSCoordSeq_destroy_r(handle_, points);
  }
  return ways;
}

bool Geos::IsValid(const Area& area) {
  const char answer = GEOSisValid_r(handle_, area.get());
  if (answer > 1) throw GeometryError(words_);
  return answer == 1;
}

double Geos::SquareMetres(const Area& area) {
  double squareMetres = 0;
  if (GEOSArea_r(handle_, area.get(), &squareMetres) == 0) throw GeometryError(words_);
  return squareMetres;
}

std::vector<Piece> Geos::Pieces(const Area& area) {
  std::vector<Piece> pieces;
  const int count = GEOSGetNumGeometries_r(handle_, area.get());
  for (int i = 0; i < count; ++i) {
    const GEOSGeometry* part = GEOSGetGeometryN_r(handle_, area.get(), i);
    // A union of areas can leave lines and points where they only touch.
    if (GEOSGeomTypeId_r(handle_, part) != GEOS_POLYGON || GEOSisEmpty_r(handle_, part) != 0) {
      continue;
    }
    Piece& piece = pieces.emplace_back();
    piece.shell = LineOf(GEOSGetExteriorRing_r(handle_, part), true);
    const int holes = GEOSGetNumInteriorRings_r(handle_, part);
    for (int hole = 0; hole < holes; ++hole) {
      piece.holes.push_back(LineOf(GEOSGetInteriorRingN_r(handle_, part, hole), false));
    }
  }
  return pieces;
}

Line Geos::LineOf(const GEOSGeometry* ring, bool clockwise) {
  const GEOSCoordSequence* points = GEOSGeom_getCoordSeq_r(handle_, ring);
  unsigned count = 0;
  if (points == nullptr || GEOSCoordSeq_getSize_r(handle_, points, &count) == 0) {
    throw GeometryError(words_);
  }
  Line line(count);
  if (GEOSCoordSeq_copyToBuffer_r(handle_, points, &line.front().easting, 0, 0) == 0) {
    throw GeometryError(words_);
  }
  if (IsClockwise(points) != clockwise) std::ranges::reverse(line);
  return line;
}

}  // namespace kestrin::ground
