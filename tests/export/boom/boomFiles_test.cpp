#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

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
  builder_.Epoch(kStart, 0, 0);
  EXPECT_THAT(ExportedSet().shapes, IsEmpty());
  EXPECT_EQ(test::FileBytes(base_ + ".shp").size(), 100U);
  EXPECT_EQ(test::FileBytes(base_ + ".shx").size(), 100U);
  EXPECT_EQ(test::FileBytes(base_ + ".dbf").size(), 386U);
  EXPECT_EQ(host_.rows, 0);
}

TEST_F(BoomFiles, JobWithoutEpochsGivesFilesWithoutRecords) {
  ReferenceAndDisc();
  EXPECT_THAT(ExportedSet().shapes, IsEmpty());
  EXPECT_THAT(host_.messages, IsEmpty());
}

TEST_F(BoomFiles, JobThatCannotBeOpenedIsToldAndOldFilesGo) {
  LeaveOldSet();
  ExpectNothingWritten(Export(folder_ / "missing.sqlite"));
  EXPECT_THAT(host_.messages, ElementsAre(StartsWith("Error opening: -")));
}

TEST_F(BoomFiles, NoReferenceLocationIsASubscriptErrorWithoutFiles) {
  LeaveOldSet();
  builder_.Implement(kStart, "Disc", {{4, 0, 0, 0}}).Epoch(kStart, 0, 0);
  ExpectSubscriptError("the job has no reference location");
  EXPECT_THAT(host_.messages, IsEmpty());
  ExpectNothingWritten();
}

TEST_F(BoomFiles, FailedReferenceQueryIsToldBeforeTheSubscriptError) {
  ReferenceAndDisc();
  builder_.Execute("DROP TABLE ReferenceLocationChangeTable");
  EXPECT_THROW(Export(), exports::SubscriptError);
  EXPECT_THAT(host_.messages, ElementsAre(StartsWith("Error creating statement: -")));
  ExpectNothingWritten();
}

TEST_F(BoomFiles, FailedChangeTablesAreToldEvenWithoutAReferenceLocation) {
  builder_.Execute("DROP TABLE AsAppliedProductChangeTable");
  EXPECT_THROW(Export(), exports::SubscriptError);
  EXPECT_THAT(host_.messages, SizeIs(1));
}

TEST_F(BoomFiles, EachChangeTableThatCannotBeQueriedIsToldAndLeftOut) {
  ReferenceAndDisc();
  builder_.Products(kStart, "Urea").DesiredRates(kStart, 7).Epoch(kStart, 0, 0);
  builder_.Execute("DROP TABLE AsAppliedProductChangeTable");
  builder_.Execute("DROP TABLE AsAppliedDesRateChangeTable");
  const test::BoomSet set = ExportedSet();
  EXPECT_THAT(host_.messages,
              ElementsAre("Error creating statement: -1", "Error creating statement: -1"));
  ASSERT_THAT(set.shapes, SizeIs(1));
  EXPECT_EQ(set.shapes[0].Product(0), std::string(10, ' '));
  EXPECT_EQ(set.shapes[0].TargetRate(0), "         0");
  EXPECT_THAT(set.shapes[0].points, SizeIs(2));
}

TEST_F(BoomFiles, ImplementTableThatCannotBeQueriedLeavesRecordsWithoutPoints) {
  ReferenceAndDisc();
  builder_.DesiredRates(kStart, 7).Epoch(kStart, 0, 0);
  builder_.Execute("DROP TABLE ImplChangeTable");
  const test::BoomSet set = ExportedSet();
  EXPECT_THAT(host_.messages, SizeIs(1));
  ASSERT_THAT(set.shapes, SizeIs(1));
  EXPECT_THAT(set.shapes[0].points, IsEmpty());
}

TEST_F(BoomFiles, ActualRatesThatCannotBeQueriedAreZeroWithoutAWord) {
  ReferenceAndDisc();
  builder_.Epoch(kStart, 0, 0);
  builder_.Execute("DROP TABLE AsAppliedActRateChangeTable");
  const test::BoomSet set = ExportedSet();
  EXPECT_THAT(host_.messages, IsEmpty());
  EXPECT_EQ(set.shapes.at(0).ActualRate(0), "         0");
}

TEST_F(BoomFiles, MissingGpsTableIsToldOncePerPeriodAndFilesHoldNoRecords) {
  ReferenceAndDisc();
  builder_.Products(After(1), "Urea").Products(After(2), "Lime");
  builder_.Execute("DROP TABLE GpsDataTable");
  EXPECT_THAT(ExportedSet().shapes, IsEmpty());
  EXPECT_THAT(host_.messages, SizeIs(3));
  EXPECT_EQ(host_.messages[2], "Error creating statement: -1");
}

TEST_F(BoomFiles, GpsTableWithoutTheSwitchColumnIsToldAsWell) {
  ReferenceAndDisc();
  builder_.Execute("ALTER TABLE GpsDataTable DROP COLUMN boomStatusBitfield");
  EXPECT_THAT(ExportedSet().shapes, IsEmpty());
  EXPECT_THAT(host_.messages, SizeIs(1));
}

TEST_F(BoomFiles, CountsOncePerEpochAndYieldsAtLeastThen) {
  ReferenceAndDisc();
  for (int i = 0; i < 7; ++i) builder_.Epoch(After(i), 0, 0);
  const exports::ExportOutcome outcome = Export();
  EXPECT_EQ(host_.rows, 7);
  EXPECT_GE(host_.yields, 7);
  EXPECT_EQ(outcome.epochs, 7);
  EXPECT_EQ(outcome.lastStep, jobstore::kDone);
}

TEST_F(BoomFiles, YieldsForEachPeriodAndForEachRecordThatIsWritten) {
  ReferenceAndDisc();
  for (int i = 1; i <= 30; ++i) builder_.Products(After(i), std::to_string(i));
  builder_.Epoch(kStart, 0, 0);
  const std::string job = builder_.Finish();
  Export(job);
  // 31 periods, of which one has a row, and its record.
  EXPECT_GE(host_.yields, 33);
  host_.cancelAt = host_.yields;
  host_.yields = 0;
  EXPECT_THROW(Export(job), base::RunCancelled);
  ExpectNothingWritten();
}

TEST_F(BoomFiles, RunCancelledWhileTheFilesAreWrittenLeavesNoFiles) {
  LeaveOldSet();
  ReferenceAndDisc();
  for (int i = 0; i < 7; ++i) builder_.Epoch(After(i), 0, 0);
  host_.cancelAt = 8;
  EXPECT_THROW(Export(), base::RunCancelled);
  ExpectNothingWritten();
}

TEST_F(BoomFiles, CancelledRunLeavesNoFiles) {
  LeaveOldSet();
  ReferenceAndDisc();
  for (int i = 0; i < 7; ++i) builder_.Epoch(After(i), 0, 0);
  host_.cancelAt = 4;
  EXPECT_THROW(Export(), base::RunCancelled);
  ExpectNothingWritten();
}

TEST_F(BoomFiles, LeavesTheThreeFilesAndNothingElse) {
  ReferenceAndDisc();
  builder_.Epoch(kStart, 0, 0);
  Export();
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
    names.push_back(entry.path().filename().string());
  }
  EXPECT_THAT(names,
              UnorderedElementsAre("job.sqlite", "job_BOOM.shp", "job_BOOM.shx", "job_BOOM.dbf"));
}

TEST_F(BoomFiles, RowsThatADamagedJobEndsAreToldByTheirError) {
  ReferenceAndDisc();
  for (int i = 0; i < 5000; ++i) builder_.Epoch(After(i), 0, 0);
  const std::string job = builder_.Finish();
  test::DamageTablePage(job);
  const exports::ExportOutcome outcome = Export(job);
  EXPECT_TRUE(outcome.made);
  EXPECT_EQ(outcome.lastStep, 11);
  EXPECT_LT(outcome.epochs, 5000);
}

}  // namespace
}  // namespace kestrin::boom
