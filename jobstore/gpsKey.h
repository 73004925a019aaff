#pragma once

#include <compare>
#include <cstdint>

namespace kestrin::jobstore {

/// The time key of a job's row: GPS week (counted from 22 August 1999) and
/// millisecond of that week. Ordered by week, then millisecond. Keys of a table
/// need not be unique.
struct GpsKey {
  std::int32_t gpsWeek = 0;
  std::int32_t gpsMsec = 0;

  friend auto operator<=>(const GpsKey&, const GpsKey&) = default;
};

}  // namespace kestrin::jobstore
