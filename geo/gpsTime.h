#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string>

#include "jobstore/gpsKey.h"

namespace kestrin::geo {

/// A local date and time without zone, to the second.
using LocalDateTime = std::chrono::local_seconds;

/// Abbreviated month names in the user's language, January first.
using MonthNames = std::array<std::string, 12>;

/// The local time of a GPS key: weeks and whole seconds from 22 August 1999,
/// milliseconds below a second dropped, no leap seconds. `zoneOffset` is in minutes
/// east but is added as seconds: dates in file names have always been made so.
/// Failure: throws std::overflow_error when the week's days exceed 32 bits, and when the
/// time lies outside the years 1 to 9999, which no date text could name.
LocalDateTime LocalTimeOf(jobstore::GpsKey key, std::int32_t zoneOffset);

/// Year in four digits, abbreviated month name and day of the month without a
/// leading zero, run together: "2006Jun15". Of any time that LocalTimeOf gives.
std::string DateText(LocalDateTime time, const MonthNames& months);

}  // namespace kestrin::geo
