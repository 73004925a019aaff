#pragma once

#include <cstdint>
#include <span>

#include "geo/modProj4.h"
#include "geo/points.h"
#include "jobstore/changeCursor.h"
#include "jobstore/queries.h"

namespace kestrin::geo {

/// The plane a whole run works in: the UTM zone of the job's first reference
/// location, kept also when a later one lies in another zone, and the projected
/// origin of the local offsets.
class WorkingPlane {
 public:
  explicit WorkingPlane(const jobstore::ReferenceRow& first)
      : zone_(UtmZoneOf(first.latitude, first.longitude)) {
    MoveOrigin(first);
  }

  std::int16_t Zone() const { return zone_; }
  UtmPoint Origin() const { return origin_; }

  /// Takes another reference location as origin. A location that cannot be
  /// projected passes on whatever values the projection left.
  void MoveOrigin(const jobstore::ReferenceRow& reference) {
    double northing = reference.latitude;
    double easting = reference.longitude;
    GeoToUtm(northing, easting, zone_);
    origin_ = {easting, northing};
  }

  /// The point `east` and `north` metres from the origin.
  UtmPoint At(double east, double north) const {
    return {origin_.easting + east, origin_.northing + north};
  }

  /// A point of the plane in degrees; what the projection left when it fails.
  GeoPoint ToGeo(UtmPoint point) const {
    double latitude = point.northing;
    double longitude = point.easting;
    UtmToGeo(latitude, longitude, zone_);
    return {longitude, latitude};
  }

  /// The same for many points, in place: northings become latitudes, eastings
  /// longitudes.
  void ToGeo(std::span<double> northings, std::span<double> eastings) const {
    UtmToGeo(northings, eastings, zone_);
  }

 private:
  std::int16_t zone_;
  UtmPoint origin_;
};

/// Turns a job's local offsets into positions, following its reference locations
/// in GPS time: a location is in force from exactly its own time key on, the first
/// from the start. Q is References or ReferencesWithAltitude.
template <class Q>
class LocalOffsets {
 public:
  explicit LocalOffsets(jobstore::Job& job) : references_(job), plane_(references_.Current()) {}

  bool Prepared() const { return references_.Prepared(); }
  std::int32_t Handle() const { return references_.Handle(); }

  /// Whether the job has a reference location at all; without one there are no
  /// positions and nothing is exported.
  bool HasReference() const { return references_.HasCurrent(); }

  const jobstore::ReferenceRow& Reference() const { return references_.Current(); }
  const WorkingPlane& Plane() const { return plane_; }

  /// Moves on to a GPS row's time, projecting each reference location passed.
  void AdvanceTo(jobstore::GpsKey time) {
    references_.AdvanceTo(time,
                          [this](const jobstore::ReferenceRow& row) { plane_.MoveOrigin(row); });
  }

  UtmPoint At(const jobstore::EpochRow& epoch) const { return plane_.At(epoch.east, epoch.north); }

 private:
  jobstore::ChangeCursor<Q> references_;
  WorkingPlane plane_;
};

}  // namespace kestrin::geo
