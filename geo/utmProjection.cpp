#include "geo/utmProjection.h"

#include <proj.h>

#include <cstddef>

#include "base/angles.h"
#include "geo/modProj4.h"
#include "geo/proj_api.h"

namespace kestrin::geo {

UtmProjection::UtmProjection(std::int16_t zone)
    : handle_(pjInitPlus(UtmDefinition(zone).c_str())) {}

UtmProjection::~UtmProjection() { pjFree(handle_); }

UtmPoint UtmProjection::ToUtm(const GeoPoint& point) const {
  if (handle_ == nullptr) return {point.longitude, point.latitude};
  const PJ_COORD radians{
      {point.longitude * base::kRadiansPerDegree, point.latitude * base::kRadiansPerDegree, 0, 0}};
  const PJ_COORD result = proj_trans(handle_->projection, PJ_FWD, radians);
  if (!IsConverted(result.v[0], result.v[1])) return {radians.v[0], radians.v[1]};
  return {result.v[0], result.v[1]};
}

GeoPoint UtmProjection::ToGeo(const UtmPoint& point) const {
  if (handle_ == nullptr) return {point.easting, point.northing};
  const PJ_COORD result =
      proj_trans(handle_->projection, PJ_INV, PJ_COORD{{point.easting, point.northing, 0, 0}});
  if (!IsConverted(result.v[0], result.v[1])) return {point.easting, point.northing};
  return {result.v[0] * base::kDegreesPerRadian, result.v[1] * base::kDegreesPerRadian};
}

void UtmProjection::ToGeo(std::span<const UtmPoint> from, std::span<GeoPoint> to) const {
  for (std::size_t i = 0; i < from.size(); ++i) to[i] = ToGeo(from[i]);
}

}  // namespace kestrin::geo
