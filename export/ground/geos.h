#pragma once

#include <geos_c.h>

#include <array>
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
  struct DestroyPrepared {
    GEOSContextHandle_t handle;
    void operator()(const GEOSPreparedGeometry* prepared) const {
      GEOSPreparedGeom_destroy_r(handle, prepared);
    }
  };

 public:
  /// Any area: none, one piece or several. Empty (null) ones may only be overwritten.
  using Area = std::unique_ptr<GEOSGeometry, Destroy>;
  /// An area that is asked about many others. It must not outlive the area it was made of.
  using Prepared = std::unique_ptr<const GEOSPreparedGeometry, DestroyPrepared>;

  Geos();
  ~Geos();
  Geos(const Geos&) = delete;
  Geos& operator=(const Geos&) = delete;

  /// The area inside a closed line of at least four points with finite coordinates. The
  /// line must not cross itself.
  Area Inside(std::span<const geo::UtmPoint> line);
  Area Inside(const Piece& piece);

  /// The area that a closed line winds about clockwise, more often than the other way.
  /// The line may cross and touch itself. Null when none of its outermost points lies on
  /// a clockwise turn, from which the library could tell one way from the other.
  Area WoundAbout(const Line& line);

  /// The union of areas, which may overlap and touch.
  Area Union(std::vector<Area> areas);
  /// The same slowly, with all points on a grid so many metres wide.
  Area UnionOnGrid(const Area& collection, double metres);
  Area Collection(std::vector<Area> areas);
  Area Difference(const Area& from, const Area& what);

  /// An open line of at least two points, and what lines enclose that meet at their ends only:
  /// areas from the outside in, by turns with and without.
  Area Way(std::span<const geo::UtmPoint> line);
  Area Enclosed(const std::vector<Area>& ways);

  Prepared Prepare(const Area& area);
  /// Whether no point of an area lies outside of another.
  bool Covers(const Prepared& area, const Area& other);

  /// Whether two areas are so many metres apart, or less.
  bool AreWithin(const Area& one, const Area& other, double metres);

  /// The convex hull of points, with so many metres around it.
  Area HullOf(const Line& points, double around);

  /// The area with all points on a grid so many metres wide, and lines that far apart.
  Area OnGrid(const Area& area, double metres);

  /// The shortest ways from an area to each of others: a point of it, and one of the other.
  std::vector<std::array<geo::UtmPoint, 2>> WaysTo(const Area& area, std::span<const Area> others);

  /// Whether no lines cross and none touch but in a point.
  bool IsValid(const Area& area);
  double SquareMetres(const Area& area);

  /// The pieces, in the library's order; lines run as the shapefile standard has them.
  std::vector<Piece> Pieces(const Area& area);

  /// A valid area for one that is not: what its shells enclose without what its holes do.
  Area Mended(const Area& area);

  /// For calls of the library that are not here: its handle, and an owner of what they make.
  GEOSContextHandle_t Handle() const { return handle_; }
  Area Own(GEOSGeometry* geometry);

 private:
  bool IsClockwise(const GEOSCoordSequence* points);
  GEOSCoordSequence* PointsOf(std::span<const geo::UtmPoint> line);
  GEOSGeometry* RingOf(std::span<const geo::UtmPoint> line);
  Line LineOf(const GEOSGeometry* ring, bool clockwise);
  static void Remember(const char* words, void* self);

  GEOSContextHandle_t handle_;
  std::string words_;
};

}  // namespace kestrin::ground
