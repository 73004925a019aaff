#pragma once

#include <cmath>
#include <cstdint>

using PJ = struct PJconsts;
using PJ_CONTEXT = struct pj_ctx;

/// PROJ in the form of its classic interface: definition texts in, handles out, points
/// converted in radians and metres. Depends on no PROJ database, no PROJ configuration and
/// no environment variable, and prints nothing. A handle serves one thread at a time; two
/// share nothing.

namespace kestrin::geo {

/// What PROJ made of a definition text, in a context of its own.
struct ProjHandle {
  PJ_CONTEXT* context = nullptr;
  PJ* projection = nullptr;
};

/// A handle for a definition text such as "+proj=utm +zone=14 +datum=NAD83". The caller
/// frees it. NAD83 stands for its ellipsoid alone, so that no datum step is taken between
/// two definitions.
/// Failure: null, when PROJ cannot make it.
ProjHandle* pjInitPlus(const char* definition);

/// Converts `pointCount` points, `pointOffset` doubles apart, from one definition to
/// another, in place: x longitude or easting, y latitude or northing. z is not looked at,
/// as no step between these definitions touches a height. Returns 0.
/// Failure: the error code of the first point that is not finite or lies outside the
/// projection's domain; that point and those after it are left as they were.
std::int32_t pjTransform(const ProjHandle* source, const ProjHandle* destination,
                         std::int32_t pointCount, std::int32_t pointOffset, double* x, double* y,
                         double* z);

/// Gives a handle back; null is passed over.
void pjFree(ProjHandle* handle);

/// Whether PROJ converted a point: it lets a NaN through as a result, and says HUGE_VAL on
/// an error.
inline bool IsConverted(double x, double y) { return std::isfinite(x) && std::isfinite(y); }

}  // namespace kestrin::geo
