#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/fileSystem.h"
#include "export/boom/boomExport.h"
#include "tests/export/boom/literalBoom.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/recordingHost.h"
#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"

namespace kestrin::test {

/// A record of a boom set as it stands in the files.
struct BoomShape : ReadRecord {
  /// The table's eleven texts, blanks included.
  std::vector<std::string> fields;

  const std::string& Implement() const { return fields[1]; }
  const std::string& Product(std::size_t slot) const { return fields[2 + 3 * slot]; }
  const std::string& TargetRate(std::size_t slot) const { return fields[3 + 3 * slot]; }
  const std::string& ActualRate(std::size_t slot) const { return fields[4 + 3 * slot]; }
};

struct BoomSet {
  geo::Box box;
  std::vector<BoomShape> shapes;
};

BoomSet ReadBoomSet(const std::string& basePath);

/// One job, exported.
class BoomFixture : public testing::Test {
 protected:
  static constexpr jobstore::GpsKey kStart{1400, 1000};

  BoomFixture() : builder(folder / "job.sqlite") {}

  static jobstore::GpsKey After(int seconds) {
    return {kStart.gpsWeek, kStart.gpsMsec + 1000 * seconds};
  }

  /// Old files of the set, to be removed.
  void PutOldFiles();
  /// Completes the job and exports it.
  exports::ExportOutcome Export();
  /// The same, and the set.
  BoomSet ExportedSet();
  bool AnyFile() const;
  /// Each point of a shape, in metres east or north of the reference location and
  /// rounded to millimetres.
  static std::vector<double> Easts(const BoomShape& shape);
  static std::vector<double> Norths(const BoomShape& shape);

  /// A reference location at 47 N, 97.5 W and one section of 4 metres called "Disc",
  /// both from kStart.
  void ReferenceAndDisc();
  void ReferenceOnly();

  TempFolder folder;
  JobBuilder builder;
  RecordingHost host;
  std::unique_ptr<base::FileSystem> files = base::NativeFileSystem();
  shapefile::SetOptions options{{2026, 3, 9}, false};
  std::string base = folder / "job_BOOM";
  std::string jobPath;
};

}  // namespace kestrin::test
