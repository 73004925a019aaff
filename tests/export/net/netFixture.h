#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "export/net/netExport.h"
#include "tests/export/setFixture.h"

namespace kestrin::test {

/// A job of one reference location, and its net set.
class NetFixture : public SetFixture {
 protected:
  NetFixture() : SetFixture(net::ExportNetShape, "job_NET") {
    builder_.Reference({1, 0}, kLatitude, kLongitude);
  }

  /// Rows on a straight way, so many metres apart, heading along it, the first beginning a
  /// stretch; sections on as the bits say.
  void Drive(geo::UtmPoint from, geo::UtmPoint to, std::int32_t sectionsOn = 0, double step = 5) {
    const double east = to.easting - from.easting;
    const double north = to.northing - from.northing;
    const double length = std::hypot(east, north);
    const int steps = static_cast<int>(std::lround(length / step));
    for (int i = 0; i <= steps; ++i) {
      const double part = static_cast<double>(i) / steps;
      Row({from.easting + part * east, from.northing + part * north}, std::atan2(east, north),
          sectionsOn, i == 0);
    }
  }

  void Row(geo::UtmPoint at, double yaw, std::int32_t sectionsOn = 0, bool begins = false) {
    jobstore::EpochRow row;
    row.time = {1, 100 * rows_++};
    row.east = at.easting;
    row.north = at.northing;
    row.yaw = yaw;
    row.type = kTakesPart | (begins ? jobstore::EpochType::kNewStretch : 0);
    row.boomStatus = sectionsOn;
    builder_.Epoch(row);
  }

  std::int32_t rows_ = 0;
};

}  // namespace kestrin::test
