#include <windows.h>

#include "geo/timeZone.h"

namespace kestrin::geo {

std::int32_t TimeZoneOffset() {
  TIME_ZONE_INFORMATION zone;
  const DWORD season = GetTimeZoneInformation(&zone);
  if (season != TIME_ZONE_ID_STANDARD && season != TIME_ZONE_ID_DAYLIGHT) return 0;
  return -static_cast<std::int32_t>(zone.Bias);
}

}  // namespace kestrin::geo
