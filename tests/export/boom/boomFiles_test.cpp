#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/export/boom/boomFixture.h"

namespace kestrin::boom {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;

/// When a boom set has its files, and what is told of the tables that fail.
class BoomFiles : public test::BoomFixture {};

TEST_F(BoomFiles, EmptyTimelineGivesFilesWithoutRecords) {
  ReferenceOnly();
  builder.Epoch(kStart, 0, 0);
  EXPECT_THAT(ExportedSet().shapes, IsEmpty());
  EXPECT_EQ(test::FileBytes(base + ".shp").size(), 100U);
  EXPECT_EQ(test::FileBytes(base + ".shx").size(), 100U);
  EXPECT_EQ(test::FileBytes(base + ".dbf").size(), 386U);
  EXPECT_EQ(host.rows, 0);
}

TEST_F(BoomFiles, JobWithoutEpochsGivesFilesWithoutRecords) {
  ReferenceAndDisc();
  EXPECT_THAT(ExportedSet().shapes, IsEmpty());
  EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(BoomFiles, JobThatCannotBeOpenedIsToldAndOldFilesGo) {
  PutOldFiles();
  jobPath = folder / "missing.sqlite";
  EXPECT_FALSE(Export().made);
  EXPECT_THAT(host.messages, ElementsAre(StartsWith("Error opening: -")));
  EXPECT_FALSE(AnyFile());
}

TEST_F(BoomFiles, NoReferenceLocationIsASubscriptErrorWithoutFiles) {
  PutOldFiles();
  builder.Implement(kStart, "Disc", {{4, 0, 0, 0}}).Epoch(kStart, 0, 0);
  EXPECT_THROW(Export(), exports::SubscriptError);
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_FALSE(AnyFile());
}

TEST_F(BoomFiles, FailedReferenceQueryIsToldBeforeTheSubscriptError) {
  ReferenceAndDisc();
  builder.Execute("DROP TABLE ReferenceLocationChangeTable");
  EXPECT_THROW(Export(), exports::SubscriptError);
  EXPECT_THAT(host.messages, ElementsAre(StartsWith("Error creating statement: -")));
  EXPECT_FALSE(AnyFile());
}

TEST_F(BoomFiles, FailedChangeTablesAreToldEvenWithoutAReferenceLocation) {
  builder.Execute("DROP TABLE AsAppliedProductChangeTable");
  EXPECT_THROW(Export(), exports::SubscriptError);
  EXPECT_THAT(host.messages, SizeIs(1));
}

TEST_F(BoomFiles, EachChangeTableThatCannotBeQueriedIsToldAndLeftOut) {
  ReferenceAndDisc();
  builder.Products(kStart, "Urea").DesiredRates(kStart, 7).Epoch(kStart, 0, 0);
  builder.Execute("DROP TABLE AsAppliedProductChangeTable");
  builder.Execute("DROP TABLE AsAppliedDesRateChangeTable");
  const test::BoomSet set = ExportedSet();
  EXPECT_THAT(host.messages,
              ElementsAre("Error creating statement: -1", "Error creating statement: -1"));
  ASSERT_THAT(set.shapes, SizeIs(1));
  EXPECT_EQ(set.shapes[0].Product(0), std::string(10, ' '));
  EXPECT_EQ(set.shapes[0].TargetRate(0), "         0");
  EXPECT_THAT(set.shapes[0].points, SizeIs(2));
}

TEST_F(BoomFiles, ImplementTableThatCannotBeQueriedLeavesRecordsWithoutPoints) {
  ReferenceAndDisc();
  builder.DesiredRates(kStart, 7).Epoch(kStart, 0, 0);
  builder.Execute("DROP TABLE ImplChangeTable");
  const test::BoomSet set = ExportedSet();
  EXPECT_THAT(host.messages, SizeIs(1));
  ASSERT_THAT(set.shapes, SizeIs(1));
  EXPECT_THAT(set.shapes[0].points, IsEmpty());
}

TEST_F(BoomFiles, ActualRatesThatCannotBeQueriedAreZeroWithoutAWord) {
  ReferenceAndDisc();
  builder.Epoch(kStart, 0, 0);
  builder.Execute("DROP TABLE AsAppliedActRateChangeTable");
  const test::BoomSet set = ExportedSet();
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_EQ(set.shapes.at(0).ActualRate(0), "         0");
}

TEST_F(BoomFiles, MissingGpsTableIsToldOncePerPeriodAndFilesHoldNoRecords) {
  ReferenceAndDisc();
  builder.Products(After(1), "Urea").Products(After(2), "Lime");
  builder.Execute("DROP TABLE GpsDataTable");
  EXPECT_THAT(ExportedSet().shapes, IsEmpty());
  EXPECT_THAT(host.messages, SizeIs(3));
  EXPECT_EQ(host.messages[2], "Error creating statement: -1");
}

TEST_F(BoomFiles, GpsTableWithoutTheSwitchColumnIsToldAsWell) {
  ReferenceAndDisc();
  builder.Execute("ALTER TABLE GpsDataTable DROP COLUMN boomStatusBitfield");
  EXPECT_THAT(ExportedSet().shapes, IsEmpty());
  EXPECT_THAT(host.messages, SizeIs(1));
}

TEST_F(BoomFiles, CountsOncePerEpochAndYieldsAtLeastThen) {
  ReferenceAndDisc();
  for (int i = 0; i < 7; ++i) builder.Epoch(After(i), 0, 0);
  const exports::ExportOutcome outcome = Export();
  EXPECT_EQ(host.rows, 7);
  EXPECT_GE(host.yields, 7);
  EXPECT_EQ(outcome.epochs, 7);
  EXPECT_EQ(outcome.lastStep, jobstore::kDone);
}

TEST_F(BoomFiles, RunCancelledWhileTheFilesAreWrittenLeavesNoFiles) {
  PutOldFiles();
  ReferenceAndDisc();
  for (int i = 0; i < 7; ++i) builder.Epoch(After(i), 0, 0);
  host.cancelAt = 8;
  EXPECT_THROW(Export(), base::RunCancelled);
  const auto entries = std::filesystem::directory_iterator(folder.Path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << "more than the job itself";
}

TEST_F(BoomFiles, CancelledRunLeavesNoFiles) {
  PutOldFiles();
  ReferenceAndDisc();
  for (int i = 0; i < 7; ++i) builder.Epoch(After(i), 0, 0);
  host.cancelAt = 4;
  EXPECT_THROW(Export(), base::RunCancelled);
  EXPECT_FALSE(AnyFile());
}

TEST_F(BoomFiles, LeavesTheThreeFilesAndNothingElse) {
  ReferenceAndDisc();
  builder.Epoch(kStart, 0, 0);
  Export();
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    names.push_back(entry.path().filename().string());
  }
  EXPECT_THAT(names,
              UnorderedElementsAre("job.sqlite", "job_BOOM.shp", "job_BOOM.shx", "job_BOOM.dbf"));
}

TEST_F(BoomFiles, RowsThatADamagedJobEndsAreToldByTheirError) {
  ReferenceAndDisc();
  for (int i = 0; i < 5000; ++i) builder.Epoch(After(i), 0, 0);
  jobPath = builder.Finish();
  {
    // The GPS rows are by far the most: those of the file's middle.
    std::fstream job(jobPath, std::ios::in | std::ios::out | std::ios::binary);
    job.seekp(static_cast<std::streamoff>(std::filesystem::file_size(jobPath) / 2));
    job << std::string(8192, '\x55');
  }
  const exports::ExportOutcome outcome = Export();
  EXPECT_TRUE(outcome.made);
  EXPECT_NE(outcome.lastStep, jobstore::kDone);
  EXPECT_NE(outcome.lastStep, jobstore::kRowReady);
  EXPECT_LT(outcome.epochs, 5000);
}

}  // namespace
}  // namespace kestrin::boom
