#include "geo/utmProjection.h"

#include <cstddef>

#include "base/angles.h"
#include "geo/modProj4.h"
#include "geo/proj_api.h"

namespace kestrin::geo {

UtmProjection::UtmProjection(std::int16_t zone)
    : handle_(pjInitPlus(UtmDefinition(zone).c_str())) {}

UtmProjection::~UtmProjection() { pjFree(handle_); }

UtmPoint UtmProjection::ToUtm(GeoPoint point) const {
  if (handle_ == nullptr) return {point.longitude, point.latitude};
  double x = point.longitude * base::kRadiansPerDegree;
  double y = point.latitude * base::kRadiansPerDegree;
  ConvertPoint(*handle_, Way::kForward, x, y);
  return {x, y};
}

GeoPoint UtmProjection::ToGeo(UtmPoint point) const {
  double x = point.easting;
  double y = point.northing;
  if (handle_ == nullptr || ConvertPoint(*handle_, Way::kInverse, x, y) != 0) return {x, y};
  return {x * base::kDegreesPerRadian, y * base::kDegreesPerRadian};
}

void UtmProjection::ToGeo(std::span<const UtmPoint> from, std::span<GeoPoint> to) const {
  for (std::size_t i = 0; i < from.size(); ++i) to[i] = ToGeo(from[i]);
}

}  // namespace kestrin::geo
