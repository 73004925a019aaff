#include "tools/sample/recorder.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace kestrin::sample {
namespace {

constexpr std::int32_t kPositionFixed = 8192;
constexpr std::int32_t kGpsEpoch = 1;
constexpr int kRowsBeforeFix = 3;
constexpr double kMetresPerDegree = 111132;
constexpr double kStillYawNoise = 0.002;
constexpr std::int64_t kJumpedRows = 2;

/// Whole implement width, absent sections left out.
double WidthOf(const Scenario& scenario) {
  double width = 0;
  if (!scenario.implements.empty()) {
    for (const jobstore::Section& section : scenario.implements.front().sections) {
      width += std::max(section.width, 0.0);
    }
  }
  return width > 0 ? width : 6;
}

jobstore::GpsKey At(std::int64_t milliseconds) {
  return {static_cast<std::int32_t>(milliseconds / kMsecPerWeek),
          static_cast<std::int32_t>(milliseconds % kMsecPerWeek)};
}

/// In milliseconds since week 0.
std::int64_t StartOf(const Scenario& scenario, std::int64_t rows) {
  if (!scenario.crossesWeek) {
    return scenario.start.gpsWeek * kMsecPerWeek + scenario.start.gpsMsec;
  }
  return (scenario.start.gpsWeek + 1) * kMsecPerWeek - rows * 550 / scenario.hertz;
}

/// Stored in whole steps: no last bit of a mathematics library reaches the file.
double Stepped(double value, double stepsPerUnit) {
  return std::round(value * stepsPerUnit) / stepsPerUnit;
}

}  // namespace

Recorder::Recorder(const Scenario& scenario, std::int64_t rows, std::uint64_t seed, JobWriter& job)
    : scenario_(scenario),
      rows_(rows),
      chance_(seed),
      job_(job),
      drive_(PlanDrive(scenario, WidthOf(scenario), rows)),
      vehicle_(drive_),
      rates_(scenario.products),
      startRow_(scenario.lateRows +
                std::clamp<std::int64_t>(rows / 10, 1, std::int64_t{5} * scenario.hertz)),
      now_(StartOf(scenario, rows)) {}

jobstore::GpsKey Recorder::Now() const { return At(now_); }

double Recorder::Prescription() const {
  static constexpr std::array<double, 4> kZones{1, 1.15, 0.85, 1.05};
  return kZones[static_cast<std::size_t>(prescription_ % 4)];
}

bool Recorder::Due(std::int64_t every, std::int64_t at) const {
  return every > 0 && written_ > startRow_ && written_ % every == at;
}

void Recorder::Run() {
  BeginJob();
  while (written_ < rows_) {
    if (changedAt_ != written_) {
      changedAt_ = written_;
      Changes();
    }
    if (epochs_ % scenario_.hertz == 0) RunRateControl();
    RecordEpoch();
    GoOn();
  }
  if (held_) job_.Epoch(*held_);
}

void Recorder::BeginJob() {
  job_.Version(Now(), "3.2.8-1");
  WriteReference();
}

void Recorder::Changes() {
  if (written_ == scenario_.lateRows) FirstChanges();
  if (written_ == startRow_) {
    // The rates of the start-up, all 0, must not come back in their own period.
    WriteProducts();
    WriteDesiredRates(1);
  }
  MoveReference();
  ChangeImplement();
  RefillAndPrescription();
  if (Due(scenario_.implementRows, 0)) WriteImplement();
  if (Due(scenario_.stopRows, scenario_.stopRows / 3)) vehicle_.Hold(scenario_.stopSeconds);
  // A hundred metres off and, some rows later, back.
  if (Due(scenario_.jumpRows, 0)) jump_ = {chance_.Chance(0.5) ? 60.0 : -60.0, 80};
  if (Due(scenario_.jumpRows, kJumpedRows)) jump_ = {};
}

void Recorder::FirstChanges() {
  if (!scenario_.implements.empty()) WriteImplement();
  WriteProducts();
  WriteDesiredRates(0.9);
  job_.ActualRates({Now(), {}});
}

void Recorder::RefillAndPrescription() {
  if (refilling_ && !vehicle_.Holding()) {
    refilling_ = false;
    ++lots_;
    WriteProducts();
    WriteDesiredRates(1);
  } else if (Due(scenario_.refillRows, scenario_.refillRows / 2)) {
    refilling_ = true;
    vehicle_.Hold(scenario_.refillSeconds);
    WriteDesiredRates(0);
  } else if (!refilling_ && Due(scenario_.prescriptionRows, 0)) {
    ++prescription_;
    WriteDesiredRates(1);
  }
}

void Recorder::MoveReference() {
  const auto moves = static_cast<std::int64_t>(scenario_.references.size());
  const auto next = static_cast<std::int64_t>(references_);
  if (next >= moves || written_ != rows_ * (next + 1) / (moves + 1)) return;
  origin_ = scenario_.references[references_++];
  begins_ = true;
  WriteReference();
}

void Recorder::ChangeImplement() {
  const auto count = static_cast<std::int64_t>(scenario_.implements.size());
  const auto next = static_cast<std::int64_t>(implement_) + 1;
  if (next >= count || written_ != rows_ * next / count) return;
  ++implement_;
  now_ += 600000;  // changing it takes ten minutes, unrecorded
  begins_ = true;
  WriteImplement();
}

void Recorder::WriteReference() {
  const double latitude = scenario_.latitude + origin_.north / kMetresPerDegree;
  const double shrink = std::cos(scenario_.latitude * base::kRadiansPerDegree);
  const double longitude = scenario_.longitude + origin_.east / (kMetresPerDegree * shrink);
  job_.Reference({{Now(), Stepped(latitude, 1e9), Stepped(longitude, 1e9)}, scenario_.altitude});
}

void Recorder::WriteImplement() {
  const ImplementSetup& setup = scenario_.implements[implement_];
  jobstore::ImplementRow row;
  row.time = Now();
  row.name = setup.name;
  row.number = setup.number;
  row.sections.fill({-1, 0, 0, 0});
  std::copy(setup.sections.begin(), setup.sections.end(), row.sections.begin());
  job_.Implement(row);
}

void Recorder::WriteProducts() {
  jobstore::ProductsRow row;
  row.time = Now();
  for (std::size_t slot = 0; slot < scenario_.products.size(); ++slot) {
    row.names[slot] = scenario_.products[slot].name;
    if (scenario_.changesProductAtRefill && lots_ > 0) {
      row.names[slot] += " " + std::to_string(lots_ + 1);
    }
  }
  job_.Products(row);
}

void Recorder::WriteDesiredRates(double factor) {
  jobstore::RatesRow row;
  row.time = Now();
  bool any = false;
  for (std::size_t slot = 0; slot < scenario_.products.size(); ++slot) {
    const double target = scenario_.products[slot].target;
    any = any || target > 0;
    row.rates[slot] = target * factor * Prescription();
  }
  if (any) job_.DesiredRates(row);
}

void Recorder::RunRateControl() {
  if (written_ < startRow_) return;
  const bool applies = vehicle_.CurrentLeg().working && !vehicle_.Holding();
  rates_.Tick(applies ? Prescription() : 0, chance_);
  if (rates_.Shown() == shown_) return;
  shown_ = rates_.Shown();
  // The meters have a clock of their own: some changes come with an epoch, others
  // between two.
  job_.ActualRates({At(chance_.Chance(0.5) ? now_ : now_ - 37), shown_});
}

void Recorder::RecordEpoch() {
  jobstore::EpochRow row = Measure();
  const bool fixed = epochs_ >= kRowsBeforeFix && !chance_.Chance(scenario_.dropouts) &&
                     (scenario_.turnsTakePart || !vehicle_.CurrentLeg().turn);
  begins_ = vehicle_.TakeBegins() || begins_;
  row.type = kGpsEpoch;
  if (fixed) {
    row.type |= kPositionFixed | (begins_ ? jobstore::EpochRow::kNewStretch : 0);
    begins_ = false;
    ++written_;
  }
  File(row);
  ++epochs_;
}

void Recorder::File(const jobstore::EpochRow& row) {
  if (!held_ && scenario_.filedLate > 0 && written_ > startRow_ &&
      chance_.Chance(scenario_.filedLate)) {
    held_ = row;
    return;
  }
  job_.Epoch(row);
  if (held_ && chance_.Chance(0.5)) {
    job_.Epoch(*held_);
    held_.reset();
  }
}

jobstore::EpochRow Recorder::Measure() {
  const Pose pose = vehicle_.Here();
  const bool still = vehicle_.Holding() && scenario_.frozenWhenStopped;
  const auto noise = [&](double size) { return still ? 0 : chance_.Noise() * size; };
  jobstore::EpochRow row;
  row.time = Now();
  const double gpsNoise = scenario_.gpsNoise;
  row.east = Stepped(pose.place.east + jump_.east - origin_.east + noise(gpsNoise), 1e4);
  row.north = Stepped(pose.place.north + jump_.north - origin_.north + noise(gpsNoise), 1e4);
  const double relief =
      2 * std::sin(pose.place.east / 180) + 1.5 * std::sin(pose.place.north / 140);
  row.down = Stepped(relief + noise(2 * gpsNoise), 1e4);
  row.yaw =
      Stepped(pose.yaw + noise(vehicle_.Holding() ? kStillYawNoise : scenario_.yawNoise), 1e6);
  row.pitch = Stepped(0.012 * std::cos(pose.place.north / 140) + noise(0.004), 1e6);
  row.roll = Stepped(0.012 * std::cos(pose.place.east / 180) + noise(0.006), 1e6);
  row.speed = std::abs(Stepped(vehicle_.Speed() * (1 + noise(0.01)), 1e3));
  row.boomStatus = SectionsOn(pose);
  return row;
}

std::int32_t Recorder::SectionsOn(const Pose& pose) const {
  if (scenario_.implements.empty()) return 0;
  const auto& sections = scenario_.implements[implement_].sections;
  const double east = std::sin(pose.yaw);
  const double north = std::cos(pose.yaw);
  std::int32_t on = 0;
  for (std::size_t i = 0; i < sections.size(); ++i) {
    if (sections[i].width <= 0) continue;
    const double ahead = sections[i].xOffset;
    const double right = sections[i].yOffset;
    const Place middle{pose.place.east + east * ahead + north * right,
                       pose.place.north + north * ahead - east * right};
    if (vehicle_.WorksAt(middle)) on |= 1 << i;
  }
  return on;
}

void Recorder::GoOn() {
  const double step = 1.0 / scenario_.hertz;
  vehicle_.Advance(step);
  if (!chance_.Chance(scenario_.repeatedKeys)) now_ += 1000 / scenario_.hertz;
  const double gap = vehicle_.TakeGap();
  if (gap > 0) now_ += static_cast<std::int64_t>(gap) * 1000;
}

}  // namespace kestrin::sample
