#pragma once

#include <cstdint>
#include <span>

#include "geo/points.h"

namespace kestrin::geo {

struct ProjHandle;

/// The projection of one UTM zone, held for a run: to make it costs a hundred times what it
/// costs to convert a point with it. Its numbers are those of GeoToUtm and UtmToGeo
/// (geo/modProj4.h), bit by bit. Serves one thread at a time.
///
/// Failure: a point that cannot be converted comes back as the numbers it went in with,
/// longitude in the place of easting and latitude in that of northing. A run goes on with
/// them: its sets have always shown such points so.
class UtmProjection {
 public:
  /// Of a zone outside 1 to 60 every conversion fails.
  explicit UtmProjection(std::int16_t zone);
  ~UtmProjection();
  UtmProjection(const UtmProjection&) = delete;
  UtmProjection& operator=(const UtmProjection&) = delete;

  // By reference: a point handed over as a value is laid down in halves and read as a whole,
  // which was measured to cost up to a third of a conversion.

  /// On failure of the conversion itself, the numbers are in radians.
  UtmPoint ToUtm(const GeoPoint& point) const;

  GeoPoint ToGeo(const UtmPoint& point) const;

  /// The same for each of a range of points; `to` is as long as `from`.
  void ToGeo(std::span<const UtmPoint> from, std::span<GeoPoint> to) const;

 private:
  ProjHandle* handle_;
};

}  // namespace kestrin::geo
