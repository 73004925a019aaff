#pragma once

#include <cstdint>

namespace kestrin::geo {

/// Minutes east of Greenwich of the system's plain time zone: daylight saving time
/// is left out, so the offset is the same all year. 0 when the system has no zone.
std::int32_t TimeZoneOffset();

}  // namespace kestrin::geo
