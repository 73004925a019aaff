#pragma once

#include <cstdint>

#include "geo/modProj4.h"
#include "geo/points.h"
#include "geo/utmProjection.h"
#include "jobstore/queries.h"

namespace kestrin::geo {

/// The plane a whole run works in: the UTM zone of the job's first reference location,
/// kept also when a later one lies in another zone, and the projected origin of the local
/// offsets. A location that cannot be projected leaves the values that UtmProjection says.
class WorkingPlane {
 public:
  explicit WorkingPlane(const jobstore::ReferenceRow& first)
      : zone_(UtmZoneOf(first.latitude, first.longitude)), projection_(zone_) {
    MoveOrigin(first);
  }

  /// Its UTM zone, for another projection to the same numbers in another thread.
  std::int16_t Zone() const { return zone_; }

  /// Takes another reference location as origin.
  void MoveOrigin(const jobstore::ReferenceRow& reference) {
    origin_ = projection_.ToUtm({reference.longitude, reference.latitude});
  }

  /// The point `east` and `north` metres from the origin.
  UtmPoint At(double east, double north) const {
    return {origin_.easting + east, origin_.northing + north};
  }

  UtmPoint ToUtm(const GeoPoint& point) const { return projection_.ToUtm(point); }

  GeoPoint ToGeo(const UtmPoint& point) const { return projection_.ToGeo(point); }

 private:
  std::int16_t zone_;
  UtmProjection projection_;
  UtmPoint origin_;
};

}  // namespace kestrin::geo
