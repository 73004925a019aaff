#pragma once

#include <cstdint>

/// A small interface over PROJ in the form of its classic one: definition texts
/// in, handles out, points converted in radians and metres. Handles cost next to
/// nothing: PROJ's own object for a zone is made once per thread, and a handle
/// refers to it. A handle is used in the thread that made it.
///
/// Understands "+proj=latlong" and "+proj=utm +zone=N" on "+datum=NAD83"
/// (geo/projDefinition.h), which it takes for its ellipsoid GRS80 alone, so that no
/// datum step is ever taken.
/// Depends on no PROJ database, no PROJ configuration and no environment variable,
/// and prints nothing.

namespace kestrin::geo {

/// A handle for a definition text, or 0 when the text cannot be understood. The
/// caller frees it, once for every time it was given out: equal definitions have
/// equal handles.
std::int32_t pjInitPlus(const char* definition);

/// Converts `pointCount` points, `pointOffset` doubles apart, from one definition
/// to another, in place: x longitude or easting, y latitude or northing. z is not
/// looked at, as no step between these definitions touches a height. Returns 0, or
/// the error code of the first point that fails; that point and those after it are
/// left as they were. A point fails when it is not finite or lies outside the
/// projection's domain. A number that is no handle is an error and converts nothing.
std::int32_t pjTransform(std::int32_t source, std::int32_t destination, std::int32_t pointCount,
                         std::int32_t pointOffset, double* x, double* y, double* z);

/// Gives a handle back; a number that is no handle is passed over.
void pjFree(std::int32_t handle);

}  // namespace kestrin::geo
