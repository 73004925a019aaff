#pragma once

#include <geos_c.h>

#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "geo/points.h"

namespace kestrin::ground {

/// The geometry library could not do what it was asked, which it is not expected to.
class GeometryError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A closed line, its last point equal to its first. UTM metres.
using Line = std::vector<geo::UtmPoint>;

/// A connected piece of ground: its outer line, which runs clockwise, and those of its
/// holes, which run the other way.
struct Piece {
  Line shell;
  std::vector<Line> holes;
};

/// The geometry library (GEOS), as much of it as is called here. One object serves one
/// run; threads need one each. What it makes must not outlive it.
///
/// Failure: GeometryError with the library's words.
class Geos {
  struct Destroy {
    GEOSContextHandle_t handle;
    void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(handle, geometry); }
  };

 public:
  /// Any area: none, one piece or several. Empty (null) ones may only be overwritten.
  using Area = std::unique_ptr<GEOSGeometry, Destroy>;

  Geos();
  ~Geos();
  Geos(const Geos&) = delete;
  Geos& operator=(const Geos&) = delete;

  /// The area inside a closed line of at least four points with finite coordinates,
  /// which need not be valid.
  Area Inside(std::span<const geo::UtmPoint> line);

  /// The union of areas, each of which must be valid: parts may overlap and touch.
  Area Union(std::vector<Area> areas);

  /// Whether it can be used as it is: no crossing lines, no point where lines touch.
  bool IsValid(const Area& area);
  double SquareMetres(const Area& area);

  /// The pieces, in the library's order; lines run as the shapefile standard has them.
  std::vector<Piece> Pieces(const Area& area);

  /// The area of a piece, which need not be valid.
  Area Of(const Piece& piece);
  /// A valid area for one that is not: what its shells enclose without what its holes do.
  Area Mended(const Area& area);

  GEOSContextHandle_t Handle() const { return handle_; }
  /// Owns what a call of the library has made.
  Area Own(GEOSGeometry* geometry);

 private:
  GEOSGeometry* RingOf(std::span<const geo::UtmPoint> line);
  Line LineOf(const GEOSGeometry* ring, bool clockwise);
  static void Remember(const char* words, void* self);

  GEOSContextHandle_t handle_;
  std::string words_;
};

}  // namespace kestrin::ground
