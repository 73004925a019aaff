#pragma once

#include <optional>
#include <string_view>

namespace kestrin::geo {

/// A system of coordinates on NAD83: degrees of its own meridian, or a UTM zone.
struct CoordinateSystem {
  static constexpr int kZones = 60;
  static constexpr int kGeographic = 0;

  /// UTM zone 1 to 60, or kGeographic for longitude and latitude.
  int zone = kGeographic;

  friend bool operator==(const CoordinateSystem&, const CoordinateSystem&) = default;
};

/// Reads a definition text: parameters "+name=value" or "+name", in any order,
/// with blanks between them. Known are "+proj=latlong" and "+proj=utm" with its
/// "+zone=" (1 to 60), "+datum=NAD83", and "+nodefs" or "+no_defs", which say
/// nothing here as there are no defaults to leave out. Projection and datum must be
/// there. Nothing is returned for any other text: a parameter that is not known
/// could move the result, so it is refused, not passed over.
std::optional<CoordinateSystem> ParseDefinition(std::string_view text);

}  // namespace kestrin::geo
