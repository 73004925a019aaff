#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "export/point/pointExport.h"
#include "geo/localOffsets.h"
#include "jobstore/job.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/recordingHost.h"
#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"

namespace kestrin::test {

inline constexpr double kLatitude = 45.25;
inline constexpr double kLongitude = -93.5;
inline constexpr double kAltitude = 300;

/// A job under construction and the point set made of it.
class PointFixture : public testing::Test {
 protected:
  /// The job, of one reference location to begin with.
  JobBuilder& Job() {
    if (!builder_) {
      builder_ = std::make_unique<JobBuilder>(jobPath_);
      builder_->Reference({1, 0}, kLatitude, kLongitude, kAltitude);
    }
    return *builder_;
  }

  exports::ExportOutcome Export(const std::string& jobPath) {
    exports::ExportRun run{host_, *files_, {{2006, 7, 9}, false}};
    return point::ExportPointShape(base_, jobPath, run);
  }

  /// Exports the job and reads the set.
  ReadSet Exported() {
    EXPECT_TRUE(Export(Job().Finish()).made);
    EXPECT_TRUE(host_.messages.empty());
    return ReadShapeSet(base_);
  }

  static std::vector<std::string> FieldNames(const ReadSet& set) {
    std::vector<std::string> names;
    for (const ReadField& field : set.fields) names.push_back(field.name);
    return names;
  }

  /// The texts of a field in all rows, as they stand.
  static std::vector<std::string> Column(const ReadSet& set, const std::string& name) {
    const auto names = FieldNames(set);
    const auto place = std::find(names.begin(), names.end(), name);
    if (place == names.end()) throw std::runtime_error("no field " + name);
    std::vector<std::string> texts;
    for (const auto& row : set.rows) {
      texts.push_back(row[static_cast<std::size_t>(place - names.begin())]);
    }
    return texts;
  }

  /// The same without the blanks around them.
  static std::vector<std::string> TrimmedColumn(const ReadSet& set, const std::string& name) {
    std::vector<std::string> texts = Column(set, name);
    for (std::string& text : texts) text = Trimmed(text);
    return texts;
  }

  void ExpectNothingWritten(const exports::ExportOutcome& outcome) const {
    EXPECT_FALSE(outcome.made);
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      EXPECT_EQ(entry.path().extension(), ".sqlite") << entry.path();
    }
  }

  void LeaveOldSet() {
    for (const char* extension : {".shp", ".shx", ".dbf"}) {
      files_->Create(base_ + extension)->WriteAt(0, "old");
    }
  }

  TempFolder folder_;
  std::string jobPath_ = folder_ / "job.sqlite";
  std::string base_ = folder_ / "job_POINT";
  std::unique_ptr<base::FileSystem> files_ = base::NativeFileSystem();
  RecordingHost host_;
  std::unique_ptr<JobBuilder> builder_;
};

}  // namespace kestrin::test
