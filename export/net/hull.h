#pragma once

#include "export/net/runs.h"

namespace kestrin::net {

/// A rectangle about a run, along its first boom.
class Hull {
 public:
  Hull(const Runs& runs, const Run& run);

  /// Whether a line between the two keeps them apart; otherwise they may touch.
  bool IsApartFrom(const Hull& other) const { return LeavesOut(other) || other.LeavesOut(*this); }

 private:
  double Across(geo::UtmPoint p) const {
    return (p.easting - origin_.easting) * east_ + (p.northing - origin_.northing) * north_;
  }
  double Along(geo::UtmPoint p) const {
    return (p.northing - origin_.northing) * east_ - (p.easting - origin_.easting) * north_;
  }
  geo::UtmPoint At(double across, double along) const;
  bool LeavesOut(const Hull& other) const;

  geo::UtmPoint origin_;
  double east_ = 1;  // of the direction across, whose length is 1
  double north_ = 0;
  geo::Box bounds_;  // x across, y along
};

}  // namespace kestrin::net
