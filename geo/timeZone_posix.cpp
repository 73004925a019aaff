#include <algorithm>
#include <chrono>
#include <ctime>

#include "geo/timeZone.h"

namespace kestrin::geo {
namespace {

std::int32_t MinutesEastAt(std::chrono::sys_days day) {
  const std::time_t time = std::chrono::system_clock::to_time_t(day);
  std::tm local{};
  if (localtime_r(&time, &local) == nullptr) return 0;
  return static_cast<std::int32_t>(local.tm_gmtoff / 60);
}

}  // namespace

std::int32_t TimeZoneOffset() {
  using std::chrono::January;
  using std::chrono::July;
  const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  const std::chrono::year year = std::chrono::year_month_day(today).year();
  tzset();
  // Daylight saving time moves clocks ahead in one of the two half years. The flag
  // that the zone tables carry for it is the wrong way round for some countries.
  return std::min(MinutesEastAt(year / January / 1), MinutesEastAt(year / July / 1));
}

}  // namespace kestrin::geo
