#include "geo/modProj4.h"

#include <charconv>
#include <cmath>
#include <cstring>

#include "geo/proj_api.h"

namespace kestrin {
namespace {

constexpr double kRadiansPerDegree = 0.0174532925199433;
constexpr double kDegreesPerRadianOut = 57.2957795130823;
constexpr const char* kGeographic = "+proj=latlong +datum=NAD83";

/// The height handed along; without effect between these two definitions.
constexpr double kLocalHeight = 1.0;

/// A handle for the length of a conversion; 0 when it could not be made.
class Handle {
 public:
  explicit Handle(const char* definition) : handle_(pjInitPlus(definition)) {}
  ~Handle() {
    if (handle_ != 0) pjFree(handle_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  explicit operator bool() const { return handle_ != 0; }
  std::int32_t Value() const { return handle_; }

 private:
  std::int32_t handle_;
};

/// "+proj=utm +zone=14 +datum=NAD83 +nodefs", without allocation.
class UtmDefinition {
 public:
  explicit UtmDefinition(std::int16_t zone) {
    char* end = Append(text_, "+proj=utm +zone=");
    end = std::to_chars(end, text_ + sizeof text_, zone).ptr;
    *Append(end, " +datum=NAD83 +nodefs") = '\0';
  }
  const char* Text() const { return text_; }

 private:
  template <std::size_t N>
  static char* Append(char* out, const char (&text)[N]) {
    std::memcpy(out, text, N - 1);
    return out + N - 1;
  }
  char text_[64];
};

}  // namespace

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

int GeoToUtm(double& latitude, double& longitude, std::int16_t zone) {
  const Handle geographic(kGeographic);
  if (!geographic) return -1;
  const Handle utm(UtmDefinition(zone).Text());
  if (!utm) return -1;
  longitude *= kRadiansPerDegree;
  latitude *= kRadiansPerDegree;
  double height = kLocalHeight;
  return pjTransform(geographic.Value(), utm.Value(), 1, 1, &longitude, &latitude, &height) == 0
             ? 0
             : -1;
}

int UtmToGeo(double& northing, double& easting, std::int16_t zone) {
  const Handle utm(UtmDefinition(zone).Text());
  if (!utm) return -1;
  const Handle geographic(kGeographic);
  if (!geographic) return -1;
  double height = kLocalHeight;
  if (pjTransform(utm.Value(), geographic.Value(), 1, 1, &easting, &northing, &height) != 0) {
    return -1;
  }
  northing *= kDegreesPerRadianOut;
  easting *= kDegreesPerRadianOut;
  return 0;
}

}  // namespace kestrin
