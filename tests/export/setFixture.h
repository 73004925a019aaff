#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "export/exportKinds.h"
#include "geo/points.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/recordingHost.h"
#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"

namespace kestrin::test {

/// Where the jobs of the wire, coverage and point tests lie: degrees.
inline constexpr double kLatitude = 45.25;
inline constexpr double kLongitude = -93.5;

/// A job under construction, alone in its folder, and the set an export makes of it there.
class SetFixture : public testing::Test {
 protected:
  using Procedure = decltype(exports::ExportKind::procedure);

  SetFixture(Procedure procedure, const std::string& setName)
      : base_(folder_ / setName), procedure_(procedure) {}

  exports::ExportOutcome Export(const std::string& jobPath);
  /// Completes the job and exports it.
  exports::ExportOutcome Export() { return Export(builder_.Finish()); }

  /// Completes and exports the job, without a message, and reads the set.
  ReadSet Exported();

  /// Files of the set from before, to be removed.
  void LeaveOldSet();
  /// No set was made, and only the job is there.
  void ExpectNothingWritten(const exports::ExportOutcome& outcome = {}) const;

  /// Where a point lies that is so many metres from a reference location.
  static geo::GeoPoint PointAt(double east, double north, double latitude = kLatitude,
                               double longitude = kLongitude);

  TempFolder folder_;
  JobBuilder builder_{folder_ / "job.sqlite"};
  RecordingHost host_;
  std::unique_ptr<base::FileSystem> files_ = base::NativeFileSystem();
  shapefile::SetOptions options_{{2006, 7, 9}, false};
  std::string base_;

 private:
  Procedure procedure_;
};

}  // namespace kestrin::test
