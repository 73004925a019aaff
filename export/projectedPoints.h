#pragma once

#include <cstdint>
#include <vector>

#include "base/crew.h"
#include "geo/points.h"
#include "geo/utmProjection.h"

namespace kestrin::exports {

/// Points on their way from a zone's plane to degrees, for a batch of InOrder.
struct ProjectedPoints : base::Crew::Task {
  explicit ProjectedPoints(std::int16_t zone) : projection(zone) {}

  void Do() override {
    degrees.resize(points.size());
    projection.ToGeo(points, degrees);
  }

  std::vector<geo::UtmPoint> points;
  std::vector<geo::GeoPoint> degrees;
  geo::UtmProjection projection;
};

}  // namespace kestrin::exports
