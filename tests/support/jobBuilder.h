#pragma once

#include <optional>
#include <string>
#include <vector>

#include "jobstore/gpsKey.h"
#include "jobstore/queries.h"
#include "tests/support/database.h"

namespace kestrin::test {

/// Makes a job file for a test: all tables of the schema, rows added by hand.
class JobBuilder {
 public:
  /// The file must not exist yet.
  explicit JobBuilder(const std::string& path);

  /// Degrees; stored in radians.
  JobBuilder& Reference(jobstore::GpsKey time, double latitude, double longitude,
                        double altitude = 0);
  JobBuilder& Implement(jobstore::GpsKey time, const std::string& name,
                        const std::vector<jobstore::Section>& sections, double number = 0);
  JobBuilder& Epoch(const jobstore::EpochRow& epoch);
  /// An epoch that takes part (with 8192 in its `type`), beginning a stretch or not.
  JobBuilder& Epoch(jobstore::GpsKey time, double east, double north, double yaw = 0,
                    bool begins = false);
  JobBuilder& DesiredRates(jobstore::GpsKey time, double rate0, double rate1 = 0, double rate2 = 0);
  JobBuilder& ActualRates(jobstore::GpsKey time, double rate0, double rate1 = 0, double rate2 = 0);
  JobBuilder& Products(jobstore::GpsKey time, const std::string& name0,
                       const std::string& name1 = "", const std::string& name2 = "");
  JobBuilder& Version(jobstore::GpsKey time, const std::string& text);
  /// Any statement, for jobs that break the schema.
  JobBuilder& Execute(const std::string& sql);

  /// Completes the file and returns its path. Nothing can be added afterwards.
  std::string Finish();

 private:
  void Insert(const std::string& table, const std::string& values);

  std::string path_;
  std::optional<Database> database_;
};

/// Makes a page of a finished job's table unreadable: of the GPS rows', when they are
/// by far the most. Rows read along an index then end there; a sort ends at once.
void DamageTablePage(const std::string& path);

/// The same of a job's last index: rows read along it end there, others do not.
void DamageIndexPage(const std::string& path);

/// Makes the first page of a finished job's table unreadable: no row of it comes.
void DamageTable(const std::string& path, const std::string& table);

/// Degrees as a job gives them back, which stores radians.
double AsStored(double degrees);

/// A row whose `type` has not this value in it is in no export.
inline constexpr int kTakesPart = 8192;

}  // namespace kestrin::test
