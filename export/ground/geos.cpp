#include "export/ground/geos.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

namespace kestrin::ground {
namespace {

static_assert(sizeof(geo::UtmPoint) == 2 * sizeof(double), "points are handed over as pairs");

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

GEOSGeometry* Geos::RingOf(std::span<const geo::UtmPoint> line) {
  GEOSCoordSequence* points = GEOSCoordSeq_copyFromBuffer_r(
      handle_, &line.front().easting, static_cast<unsigned>(line.size()), 0, 0);
  if (points == nullptr) throw GeometryError(words_);
  // Each takes what it is given, also when it fails.
  GEOSGeometry* ring = GEOSGeom_createLinearRing_r(handle_, points);
  if (ring == nullptr) throw GeometryError(words_);
  return ring;
}

Geos::Area Geos::Inside(std::span<const geo::UtmPoint> line) {
  return Own(GEOSGeom_createPolygon_r(handle_, RingOf(line), nullptr, 0));
}

Geos::Area Geos::Of(const Piece& piece) {
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

Geos::Area Geos::Union(std::vector<Area> areas) {
  std::vector<GEOSGeometry*> given;
  given.reserve(areas.size());
  for (Area& area : areas) given.push_back(area.release());
  const Area all = Own(GEOSGeom_createCollection_r(handle_, GEOS_GEOMETRYCOLLECTION, given.data(),
                                                   static_cast<unsigned>(given.size())));
  return Own(GEOSUnaryUnion_r(handle_, all.get()));
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
  char counterClockwise = 0;
  if (points == nullptr || GEOSCoordSeq_getSize_r(handle_, points, &count) == 0 ||
      GEOSCoordSeq_isCCW_r(handle_, points, &counterClockwise) == 0) {
    throw GeometryError(words_);
  }
  Line line(count);
  if (GEOSCoordSeq_copyToBuffer_r(handle_, points, &line.front().easting, 0, 0) == 0) {
    throw GeometryError(words_);
  }
  if ((counterClockwise == 1) == clockwise) std::ranges::reverse(line);
  return line;
}

}  // namespace kestrin::ground
