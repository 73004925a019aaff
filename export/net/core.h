#pragma once

#include <cstddef>
#include <span>

#include "export/net/runs.h"
#include "export/net/track.h"
#include "geo/box.h"

namespace kestrin::net {

/// A rectangle that lies within the ground of a regular run and of the rows about its ends,
/// a millimetre clear of the outline. It runs along with the run and may be empty.
///
/// The booms of regular runs turn little and all reach from one side of the rectangle to the
/// other; the first lies in front of it, the last behind. So on its way every point of it is
/// passed by a boom, and that is ground.
class Core {
 public:
  /// Of steps `first` to `last` of a span, which must be regular runs that go on.
  Core(const Runs& runs, Span span, std::uint32_t first, std::uint32_t last);

  bool IsEmpty() const { return !(alongMin_ < alongMax_ && acrossMin_ < acrossMax_); }
  geo::Box Bounds() const;

  bool Holds(geo::UtmPoint point) const {
    const double along = Along(point);
    const double across = Across(point);
    return alongMin_ <= along && along <= alongMax_ && acrossMin_ <= across && across <= acrossMax_;
  }

  /// How much of the way from a point in it to another lies in it: 0 to 1.
  double PartInside(geo::UtmPoint from, geo::UtmPoint to) const;

 private:
  double Along(geo::UtmPoint p) const {
    return (p.easting - origin_.easting) * east_ + (p.northing - origin_.northing) * north_;
  }
  double Across(geo::UtmPoint p) const {
    return (p.easting - origin_.easting) * north_ - (p.northing - origin_.northing) * east_;
  }

  geo::UtmPoint origin_;
  double east_ = 0;  // of the direction along, whose length is 1
  double north_ = 0;
  double alongMin_ = 0;
  double alongMax_ = 0;
  double acrossMin_ = 0;
  double acrossMax_ = 0;
};

}  // namespace kestrin::net
