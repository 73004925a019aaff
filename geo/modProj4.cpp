#include "geo/modProj4.h"

#include <cmath>
#include <memory>

#include "base/angles.h"
#include "geo/proj_api.h"

namespace kestrin::geo {
namespace {

constexpr const char* kGeographic = "+proj=latlong +datum=NAD83";

/// The height handed along; without effect between these two definitions.
constexpr double kLocalHeight = 1.0;

struct FreeHandle {
  void operator()(ProjHandle* handle) const { pjFree(handle); }
};
/// A handle for the length of a conversion; null when it could not be made.
using Handle = std::unique_ptr<ProjHandle, FreeHandle>;

int Transform(const Handle& source, const Handle& destination, double& x, double& y) {
  double height = kLocalHeight;
  return pjTransform(source.get(), destination.get(), 1, 1, &x, &y, &height) == 0 ? 0 : -1;
}

}  // namespace

std::string UtmDefinition(std::int16_t zone) {
  return "+proj=utm +zone=" + std::to_string(zone) + " +datum=NAD83 +nodefs";
}

std::int16_t UtmZoneOf(double latitude, double longitude) {
  const double zoneNumber = std::floor(longitude / 6 + 31);
  std::int16_t zone = zoneNumber >= -32768 && zoneNumber <= 32767
                          ? static_cast<std::int16_t>(zoneNumber)
                          : std::int16_t{0};
  if (latitude >= 56 && latitude < 64 && longitude >= 3 && longitude < 12) zone = 32;
  if (latitude >= 72) {
    if (longitude >= 0 && longitude < 9) zone = 31;
    if (longitude >= 9 && longitude < 21) zone = 33;
    if (longitude >= 21 && longitude < 33) zone = 35;
    if (longitude >= 33 && longitude < 42) zone = 37;
  }
  return zone;
}

int GeoToUtm(double& latitudeNorthing, double& longitudeEasting, std::int16_t zone) {
  const Handle geographic(pjInitPlus(kGeographic));
  const Handle utm(pjInitPlus(UtmDefinition(zone).c_str()));
  if (!geographic || !utm) return -1;
  longitudeEasting *= base::kRadiansPerDegree;
  latitudeNorthing *= base::kRadiansPerDegree;
  return Transform(geographic, utm, longitudeEasting, latitudeNorthing);
}

int UtmToGeo(double& northingLatitude, double& eastingLongitude, std::int16_t zone) {
  const Handle utm(pjInitPlus(UtmDefinition(zone).c_str()));
  const Handle geographic(pjInitPlus(kGeographic));
  if (Transform(utm, geographic, eastingLongitude, northingLatitude) != 0) return -1;
  northingLatitude *= base::kDegreesPerRadian;
  eastingLongitude *= base::kDegreesPerRadian;
  return 0;
}

}  // namespace kestrin::geo
