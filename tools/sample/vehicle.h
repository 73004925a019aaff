#pragma once

#include "tools/sample/drive.h"

namespace kestrin::sample {

/// Drives a plan; starts over beside the field when it is done.
class Vehicle {
 public:
  /// The drive must outlive the vehicle.
  explicit Vehicle(const Drive& drive);

  /// Stands still for so long before going on.
  void Hold(double seconds) { holding_ += seconds; }
  bool Holding() const { return holding_ > 0; }

  /// Moves on by so many seconds.
  void Advance(double seconds);

  /// Where the vehicle is now, and on which leg.
  Pose Here() const;
  const Leg& CurrentLeg() const { return drive_->legs[leg_]; }
  double Speed() const { return Holding() ? 0 : std::abs(CurrentLeg().speed); }

  /// Whether the implement works at a place when it is down.
  bool WorksAt(Place place) const;

  /// Whether a stretch began since the last call.
  bool TakeBegins();

  /// Seconds that passed unrecorded on the way to another start since the last call.
  double TakeGap();

 private:
  void NextLeg();

  const Drive* drive_;
  std::size_t leg_ = 0;
  double driven_ = 0;
  double holding_ = 0;
  double eastShift_ = 0;  // of the field now worked, against the planned one
  double fieldWidth_ = 0;
  bool begins_ = true;
  double gap_ = 0;
};

}  // namespace kestrin::sample
