#include "geo/modProj4.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "geo/proj_api.h"

namespace kestrin::geo {
namespace {

constexpr double kRadiansPerDegree = 0.0174532925199433;
constexpr double kDegreesPerRadianOut = 57.2957795130823;
constexpr const char* kGeographic = "+proj=latlong +datum=NAD83";

/// The height handed along; without effect between these two definitions.
constexpr double kLocalHeight = 1.0;

/// Holds a handle for the length of a conversion; 0 when it could not be made.
class Handle {
 public:
  explicit Handle(std::int32_t made) : handle_(made) {}
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

/// "+proj=utm +zone=14 +datum=NAD83 +nodefs"
class UtmDefinition {
 public:
  constexpr explicit UtmDefinition(int zone) {
    Append("+proj=utm +zone=");
    AppendNumber(zone);
    Append(" +datum=NAD83 +nodefs");
  }
  constexpr const char* Text() const { return text_.data(); }

 private:
  constexpr void Append(std::string_view text) {
    for (const char c : text) text_[size_++] = c;
  }
  constexpr void AppendNumber(int number) {
    if (number < 0) Append("-");
    const int magnitude = number < 0 ? -number : number;
    if (magnitude >= 10) AppendNumber(magnitude / 10);
    text_[size_++] = static_cast<char>('0' + magnitude % 10);
  }

  std::array<char, 48> text_{};
  std::size_t size_ = 0;
};

constexpr int kZones = 60;

template <int... zones>
constexpr std::array<UtmDefinition, kZones> DefinitionsOf(std::integer_sequence<int, zones...>) {
  return {UtmDefinition(zones + 1)...};
}

/// The texts of zone 1 to 60, made by the compiler: a conversion takes about as
/// long as it would take to write one.
constexpr auto kUtmDefinitions = DefinitionsOf(std::make_integer_sequence<int, kZones>{});

std::int32_t MakeUtm(std::int16_t zone) {
  if (zone < 1 || zone > kZones) return pjInitPlus(UtmDefinition(zone).Text());
  return pjInitPlus(kUtmDefinitions[static_cast<std::size_t>(zone - 1)].Text());
}

constexpr std::size_t kBatch = 64;

/// At most kBatch points in one conversion; one by one where that meets a point that
/// fails, as it ends there.
void UtmToGeoBatch(std::span<double> northings, std::span<double> eastings, std::int16_t zone) {
  const Handle utm(MakeUtm(zone));
  const Handle geographic(pjInitPlus(kGeographic));
  if (!utm || !geographic) return;
  std::array<double, kBatch> x{};
  std::array<double, kBatch> y{};
  std::copy(eastings.begin(), eastings.end(), x.begin());
  std::copy(northings.begin(), northings.end(), y.begin());
  double height = kLocalHeight;
  if (pjTransform(utm.Value(), geographic.Value(), static_cast<std::int32_t>(northings.size()), 1,
                  x.data(), y.data(), &height) != 0) {
    for (std::size_t i = 0; i < northings.size(); ++i) UtmToGeo(northings[i], eastings[i], zone);
    return;
  }
  for (std::size_t i = 0; i < northings.size(); ++i) {
    northings[i] = y[i] * kDegreesPerRadianOut;
    eastings[i] = x[i] * kDegreesPerRadianOut;
  }
}

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
  const Handle geographic(pjInitPlus(kGeographic));
  if (!geographic) return -1;
  const Handle utm(MakeUtm(zone));
  if (!utm) return -1;
  longitude *= kRadiansPerDegree;
  latitude *= kRadiansPerDegree;
  double height = kLocalHeight;
  return pjTransform(geographic.Value(), utm.Value(), 1, 1, &longitude, &latitude, &height) == 0
             ? 0
             : -1;
}

int UtmToGeo(double& northing, double& easting, std::int16_t zone) {
  const Handle utm(MakeUtm(zone));
  if (!utm) return -1;
  const Handle geographic(pjInitPlus(kGeographic));
  if (!geographic) return -1;
  double height = kLocalHeight;
  if (pjTransform(utm.Value(), geographic.Value(), 1, 1, &easting, &northing, &height) != 0) {
    return -1;
  }
  northing *= kDegreesPerRadianOut;
  easting *= kDegreesPerRadianOut;
  return 0;
}

void UtmToGeo(std::span<double> northings, std::span<double> eastings, std::int16_t zone) {
  const std::size_t count = std::min(northings.size(), eastings.size());
  for (std::size_t i = 0; i < count; i += kBatch) {
    const std::size_t size = std::min(kBatch, count - i);
    UtmToGeoBatch(northings.subspan(i, size), eastings.subspan(i, size), zone);
  }
}

}  // namespace kestrin::geo
