#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "tools/sample/drive.h"
#include "tools/sample/jobWriter.h"
#include "tools/sample/randomness.h"
#include "tools/sample/rateControl.h"
#include "tools/sample/scenario.h"
#include "tools/sample/vehicle.h"

namespace kestrin::sample {

/// Plays the console: drives through a scenario and records it into a job.
class Recorder {
 public:
  /// The scenario must outlive the recorder.
  Recorder(const Scenario& scenario, std::int64_t rows, std::uint64_t seed, JobWriter& job);

  /// Records until `rows` epochs that take part are written.
  void Run();

 private:
  jobstore::GpsKey Now() const;
  double Prescription() const;
  bool Due(std::int64_t every, std::int64_t at) const;

  void BeginJob();
  void Changes();
  void FirstChanges();
  void RefillAndPrescription();
  void MoveReference();
  void ChangeImplement();
  void WriteReference();
  void WriteImplement();
  void WriteProducts();
  void WriteDesiredRates(double factor);
  void RunRateControl();
  void RecordEpoch();
  void File(const jobstore::EpochRow& row);
  jobstore::EpochRow Measure();
  std::int32_t SectionsOn(const Pose& pose) const;
  void GoOn();

  const Scenario& scenario_;
  std::int64_t rows_;
  Randomness chance_;
  JobWriter& job_;
  Drive drive_;
  Vehicle vehicle_;
  RateControl rates_;

  std::int64_t startRow_;       ///< when the operator starts to apply
  std::int64_t now_;            ///< milliseconds since week 0
  std::int64_t written_ = 0;    ///< epochs that take part
  std::int64_t epochs_ = 0;     ///< all epochs
  Place origin_;                ///< of the reference location in force
  std::size_t references_ = 0;  ///< taken so far
  std::size_t implement_ = 0;   ///< the one attached
  std::int64_t prescription_ = 0;
  std::int64_t lots_ = 0;
  std::int64_t changedAt_ = -1;             ///< the row whose changes were made
  std::optional<jobstore::EpochRow> held_;  ///< to be filed behind a later one
  Place jump_;                              ///< how far off the position is
  bool refilling_ = false;
  bool begins_ = true;
  std::array<double, jobstore::kProductSlots> shown_{};
};

}  // namespace kestrin::sample
