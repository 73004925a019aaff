#include "tools/sample/vehicle.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestrin::sample {

Vehicle::Vehicle(const Drive& drive) : drive_(&drive) {
  double west = 0;
  double east = 0;
  for (const Leg& leg : drive.legs) {
    west = std::min(west, leg.start.place.east);
    east = std::max(east, leg.start.place.east);
  }
  fieldWidth_ = east - west + 100;
}

void Vehicle::Advance(double seconds) {
  const double held = std::min(holding_, seconds);
  holding_ -= held;
  double rest = seconds - held;
  while (rest > 0) {
    const Leg& leg = CurrentLeg();
    const double speed = std::abs(leg.speed);
    if (driven_ + speed * rest < leg.metres) {
      driven_ += speed * rest;
      return;
    }
    rest -= (leg.metres - driven_) / speed;
    NextLeg();
  }
}

void Vehicle::NextLeg() {
  const Place before = CurrentLeg().At(CurrentLeg().metres).place;
  driven_ = 0;
  double away = 0;
  if (++leg_ == drive_->legs.size()) {
    leg_ = 0;
    eastShift_ += fieldWidth_;
    away = fieldWidth_;
  }
  const Leg& leg = CurrentLeg();
  begins_ = begins_ || leg.begins;
  const double jump =
      away + std::hypot(leg.start.place.east - before.east, leg.start.place.north - before.north);
  if (jump > 1) gap_ += jump / std::abs(leg.speed);
}

Pose Vehicle::Here() const {
  Pose pose = CurrentLeg().At(driven_);
  pose.place.east += eastShift_;
  return pose;
}

bool Vehicle::WorksAt(Place place) const {
  if (!CurrentLeg().working || Holding()) return false;
  const Place planned{place.east - eastShift_, place.north};
  if (planned.east < CurrentLeg().workedUpTo) return false;
  const Outline& area = CurrentLeg().inner ? drive_->inner : drive_->field;
  return area.empty() || Contains(area, planned);
}

bool Vehicle::TakeBegins() { return std::exchange(begins_, false); }

double Vehicle::TakeGap() { return std::exchange(gap_, 0); }

}  // namespace kestrin::sample
