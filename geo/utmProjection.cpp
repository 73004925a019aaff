#include "geo/utmProjection.h"

#include <proj.h>

#include <cmath>
#include <cstddef>

#include "base/angles.h"
#include "geo/modProj4.h"
#include "geo/proj_api.h"

namespace kestrin::geo {
namespace {

GeoPoint Inverse(PJ* projection, UtmPoint point) {
  const PJ_COORD result =
      proj_trans(projection, PJ_INV, PJ_COORD{{point.easting, point.northing, 0, 0}});
  // PROJ lets a NaN through as a result, and says HUGE_VAL on an error.
  if (!std::isfinite(result.v[0]) || !std::isfinite(result.v[1])) {
    return {point.easting, point.northing};
  }
  return {result.v[0] * base::kDegreesPerRadian, result.v[1] * base::kDegreesPerRadian};
}

}  // namespace

UtmProjection::UtmProjection(std::int16_t zone)
    : handle_(pjInitPlus(UtmDefinition(zone).c_str())) {}

UtmProjection::~UtmProjection() { pjFree(handle_); }

UtmPoint UtmProjection::ToUtm(GeoPoint point) const {
  if (handle_ == nullptr) return {point.longitude, point.latitude};
  const double longitude = point.longitude * base::kRadiansPerDegree;
  const double latitude = point.latitude * base::kRadiansPerDegree;
  const PJ_COORD result =
      proj_trans(handle_->projection, PJ_FWD, PJ_COORD{{longitude, latitude, 0, 0}});
  const UtmPoint projected{result.v[0], result.v[1]};
  return projected.IsFinite() ? projected : UtmPoint{longitude, latitude};
}

GeoPoint UtmProjection::ToGeo(UtmPoint point) const {
  if (handle_ == nullptr) return {point.easting, point.northing};
  return Inverse(handle_->projection, point);
}

void UtmProjection::ToGeo(std::span<const UtmPoint> from, std::span<GeoPoint> to) const {
  for (std::size_t i = 0; i < from.size(); ++i) to[i] = ToGeo(from[i]);
}

}  // namespace kestrin::geo
