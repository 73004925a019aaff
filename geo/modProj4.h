#pragma once

#include <cstdint>
#include <span>

/// The program's only map projection: geographic positions (decimal degrees,
/// NAD83, north and east positive) to UTM metres (GRS80) and back. No datum step
/// lies between the two.

namespace kestrin::geo {

/// The UTM zone of a position, with the exceptions of southern Norway and
/// Svalbard. Longitude 180 gives zone 61: there is no wrap-around. A longitude
/// beyond the 16-bit range of zones, or none at all, gives 0, which no
/// conversion accepts.
std::int16_t UtmZoneOf(double latitude, double longitude);

/// Replaces latitude by northing and longitude by easting and returns 0. Returns
/// -1 on failure: unchanged when the zone is not to be had (1 to 60), left in
/// radians when the conversion itself fails.
int GeoToUtm(double& latitude, double& longitude, std::int16_t zone);

/// Replaces northing by latitude and easting by longitude, in degrees, and returns
/// 0. Returns -1 on failure, with both as they were.
int UtmToGeo(double& northing, double& easting, std::int16_t zone);

/// UtmToGeo for each of a number of points, as many northings as eastings: a point
/// that fails stays as it was, the others do not mind. Costs less than as many calls.
void UtmToGeo(std::span<double> northings, std::span<double> eastings, std::int16_t zone);

}  // namespace kestrin::geo
