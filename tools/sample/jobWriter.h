#pragma once

#include <memory>
#include <string>

#include "jobstore/queries.h"

namespace kestrin::sample {

/// Writes a job file the way the console does: all tables, rows in the order they
/// happen, rollback-journal mode. Everything throws SampleError when it fails.
class JobWriter {
 public:
  /// Creates the file, which must not exist yet.
  explicit JobWriter(const std::string& path);
  ~JobWriter();
  JobWriter(const JobWriter&) = delete;
  JobWriter& operator=(const JobWriter&) = delete;

  void Version(jobstore::GpsKey time, const std::string& text);
  /// Latitude and longitude in degrees; stored in radians.
  void Reference(const jobstore::ReferenceWithAltitudeRow& row);
  void Implement(const jobstore::ImplementRow& row);
  void DesiredRates(const jobstore::RatesRow& row);
  void ActualRates(const jobstore::RatesRow& row);
  void Products(const jobstore::ProductsRow& row);
  void Epoch(const jobstore::EpochRow& row);

  /// Completes the file. Without it, what was written is no use.
  void Commit();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace kestrin::sample
