#include "export/net/core.h"

#include <algorithm>
#include <cmath>

namespace kestrin::net {
namespace {

constexpr double kClear = 0.001;

/// How much of a way from `at` to `at` + `step` stays within the bounds.
double PartWithin(double at, double step, double min, double max) {
  if (step > 0) return (max - at) / step;
  if (step < 0) return (min - at) / step;
  return 1;
}

}  // namespace

Core::Core(const Runs& runs, Span span, std::uint32_t first, std::uint32_t last) {
  const Boom begin = runs.At(first, span);
  const Boom end = runs.At(last, span);
  origin_ = begin.left;
  const double east =
      end.left.easting - begin.left.easting + end.right.easting - begin.right.easting;
  const double north =
      end.left.northing - begin.left.northing + end.right.northing - begin.right.northing;
  const double length = std::hypot(east, north);
  if (length == 0) return;
  east_ = east / length;
  north_ = north / length;
  alongMin_ = std::max(Along(begin.left), Along(begin.right)) + kClear;
  alongMax_ = std::min(Along(end.left), Along(end.right)) - kClear;
  // In reverse the left ends are on the right of the way.
  const bool reverse = Across(begin.left) > Across(begin.right);
  acrossMin_ = -HUGE_VAL;
  acrossMax_ = HUGE_VAL;
  for (std::uint32_t step = first; step <= last; ++step) {
    const Boom boom = runs.At(step, span);
    acrossMin_ = std::max(acrossMin_, Across(reverse ? boom.right : boom.left) + kClear);
    acrossMax_ = std::min(acrossMax_, Across(reverse ? boom.left : boom.right) - kClear);
  }
}

geo::Box Core::Bounds() const {
  geo::Box box;
  for (const double along : {alongMin_, alongMax_}) {
    for (const double across : {acrossMin_, acrossMax_}) {
      box.Widen(origin_.easting + along * east_ + across * north_,
                origin_.northing + along * north_ - across * east_);
    }
  }
  return box;
}

double Core::PartInside(geo::UtmPoint from, geo::UtmPoint to) const {
  const double along = Along(from);
  const double across = Across(from);
  return std::min({1.0, PartWithin(along, Along(to) - along, alongMin_, alongMax_),
                   PartWithin(across, Across(to) - across, acrossMin_, acrossMax_)});
}

}  // namespace kestrin::net
