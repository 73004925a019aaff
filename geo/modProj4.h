#pragma once

#include <cstdint>
#include <string>

/// The program's only map projection: geographic positions (decimal degrees, NAD83, north
/// and east positive) to UTM metres (GRS80) and back. No datum step lies between the two.
/// Whoever converts more than a point holds a UtmProjection (geo/utmProjection.h), which
/// gives the same numbers.

namespace kestrin::geo {

/// PROJ's definition text of a UTM zone: "+proj=utm +zone=14 +datum=NAD83 +nodefs". Of a
/// zone outside 1 to 60, a text that PROJ refuses.
std::string UtmDefinition(std::int16_t zone);

/// The UTM zone of a position in degrees, with the exceptions of southern Norway and
/// Svalbard. Longitude 180 gives zone 61: there is no wrap-around. A longitude beyond the
/// 16-bit range of zones, or none at all, gives 0, which no conversion accepts.
std::int16_t UtmZoneOf(double latitude, double longitude);

/// Replaces the latitude in `latitudeNorthing` by the northing and the longitude in
/// `longitudeEasting` by the easting, and returns 0.
///
/// Failure: -1. Both stay as they were for a zone outside 1 to 60, and are left in radians
/// when the conversion itself fails.
int GeoToUtm(double& latitudeNorthing, double& longitudeEasting, std::int16_t zone);

/// Replaces the northing in `northingLatitude` by the latitude and the easting in
/// `eastingLongitude` by the longitude, in degrees, and returns 0.
///
/// Failure: -1, with both as they were.
int UtmToGeo(double& northingLatitude, double& eastingLongitude, std::int16_t zone);

}  // namespace kestrin::geo
