#include "geo/gpsTime.h"

#include <stdexcept>

namespace kestrin::geo {
namespace {

using std::chrono::days;
using std::chrono::local_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr local_days kWeekZero{year{1999} / std::chrono::August / 22};
constexpr local_days kFirstDay{year{1} / std::chrono::January / 1};
constexpr local_days kEndOfDays{year{10000} / std::chrono::January / 1};

std::int32_t DaysOf(std::int32_t gpsWeek) {
  const std::int64_t exact = std::int64_t{gpsWeek} * 7;
  const auto kept = static_cast<std::int32_t>(exact);
  if (kept != exact) throw std::overflow_error("GPS week out of range");
  return kept;
}

}  // namespace

LocalDateTime LocalTimeOf(jobstore::GpsKey key, std::int32_t zoneOffset) {
  const LocalDateTime time = kWeekZero + days{DaysOf(key.gpsWeek)} +
                             std::chrono::seconds{key.gpsMsec / 1000} +
                             std::chrono::seconds{zoneOffset};
  if (time < kFirstDay || time >= kEndOfDays) throw std::overflow_error("date out of range");
  return time;
}

std::string DateText(LocalDateTime time, const MonthNames& months) {
  const year_month_day date{std::chrono::floor<days>(time)};
  const auto month = static_cast<unsigned>(date.month());
  const std::string yearText = std::to_string(static_cast<int>(date.year()));
  const std::string padding(yearText.size() < 4 ? 4 - yearText.size() : 0, '0');
  return padding + yearText + months[month - 1] + std::to_string(static_cast<unsigned>(date.day()));
}

}  // namespace kestrin::geo
