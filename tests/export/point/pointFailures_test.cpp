#include "jobstore/job.h"
#include "tests/export/point/pointFixture.h"
#include "tests/support/faultyFileSystem.h"

/// What a point export leaves and says when there is nothing to write.

namespace kestrin::point {
namespace {

class PointFailures : public test::PointFixture {
 protected:
  void ExpectMessage(const std::string& text, std::int32_t code) const {
    EXPECT_EQ(host_.messages, std::vector<std::string>{text + std::to_string(code)});
  }
};

TEST_F(PointFailures, MissingJobShowsItsResultAndTheOldSetIsGone) {
  LeaveOldSet();
  const std::string none = folder_ / "none.sqlite";
  const std::int32_t result = jobstore::Job(none).Result();
  ASSERT_LT(result, 0);
  ExpectNothingWritten(Export(none));
  ExpectMessage("Error opening: ", result);
}

TEST_F(PointFailures, FailedReferenceQueryShowsItsResult) {
  LeaveOldSet();
  builder_.Epoch({1, 0}, 0, 0).Execute("DROP TABLE ReferenceLocationChangeTable");
  const std::string path = builder_.Finish();
  jobstore::Job job(path);
  const std::int32_t result = jobstore::Query<jobstore::ReferencesWithAltitude>(job).Result();
  ASSERT_LT(result, 0);
  ExpectNothingWritten(Export(path));
  ExpectMessage("Error creating statement: ", result);
}

TEST_F(PointFailures, FailedGpsQueryShowsItsOwnResult) {
  LeaveOldSet();
  builder_.Execute("ALTER TABLE GpsDataTable RENAME COLUMN speed TO other");
  const std::string path = builder_.Finish();
  jobstore::Job job(path);
  const std::int32_t result = jobstore::Query<jobstore::PointEpochs>(job).Result();
  ASSERT_LT(result, 0);
  const exports::ExportOutcome outcome = Export(path);
  ExpectNothingWritten(outcome);
  // Told already.
  EXPECT_EQ(outcome.lastStep, jobstore::kDone);
  ExpectMessage("Error creating statement: ", result);
}

TEST_F(PointFailures, NoReferenceLeavesNothingAndSaysNothing) {
  LeaveOldSet();
  builder_.Execute("DELETE FROM ReferenceLocationChangeTable").Execute("DROP TABLE GpsDataTable");
  ExpectNothingWritten(Export());
  EXPECT_TRUE(host_.messages.empty());
}

TEST_F(PointFailures, NoRowThatTakesPartLeavesNothingAndTheOldSetIsGone) {
  LeaveOldSet();
  jobstore::EpochRow out;
  out.type = 1;
  builder_.Epoch(out);
  ExpectNothingWritten(Export());
  EXPECT_TRUE(host_.messages.empty());
  EXPECT_EQ(host_.rows, 0);
}

TEST_F(PointFailures, EmptyJobPathOnlyRemovesTheOldSet) {
  LeaveOldSet();
  ExpectNothingWritten(Export(""));
  EXPECT_TRUE(host_.messages.empty());
}

TEST_F(PointFailures, EmptyBasePathDoesNothing) {
  builder_.Epoch({1, 0}, 0, 0);
  base_.clear();
  ExpectNothingWritten(Export());
  EXPECT_TRUE(host_.messages.empty());
  EXPECT_EQ(host_.rows, 0);
}

TEST_F(PointFailures, PointsThatCannotBeConvertedKeepWhatTheConversionLeft) {
  builder_.Execute("DELETE FROM ReferenceLocationChangeTable")
      .Reference({1, 0}, 40, 180)  // zone 61, which there is not
      .Epoch({1, 0}, 2, 3);
  const auto [x, y] = Exported().records[0].points[0];
  EXPECT_NEAR(x, 182, 1e-9);
  EXPECT_NEAR(y, 43, 1e-9);
}

TEST_F(PointFailures, RowsThatEndEarlyLeaveACompleteSetOfThoseBefore) {
  for (int i = 0; i < 3000; ++i) builder_.Epoch({1, i}, 0, i);
  builder_.Execute("CREATE INDEX byTime ON GpsDataTable (gpsWeek, gpsMsec)");
  const std::string path = builder_.Finish();
  test::DamageTablePage(path);
  const exports::ExportOutcome outcome = Export(path);
  EXPECT_TRUE(outcome.made);
  EXPECT_EQ(outcome.lastStep, 11);
  EXPECT_TRUE(host_.messages.empty());
  EXPECT_GT(outcome.epochs, 100);
  EXPECT_LT(outcome.epochs, 3000);
  const test::ReadSet set = test::ReadShapeSet(base_);
  EXPECT_EQ(static_cast<std::int64_t>(set.records.size()), outcome.epochs);
  EXPECT_EQ(static_cast<std::int64_t>(set.rows.size()), outcome.epochs);
}

TEST_F(PointFailures, CancelledRunLeavesNothing) {
  LeaveOldSet();
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 1}, 0, 1).Epoch({1, 2}, 0, 2);
  const std::string path = builder_.Finish();
  for (host_.cancelAt = 1; host_.cancelAt <= 3; ++host_.cancelAt) {
    host_.yields = 0;
    EXPECT_THROW(Export(path), base::RunCancelled);
    ExpectNothingWritten();
  }
}

TEST_F(PointFailures, WhicheverFileOperationFailsNothingIsLeft) {
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 1}, 0, 1);
  const std::string path = builder_.Finish();
  test::FaultyFileSystem faulty(*files_);
  exports::ExportRun run{host_, faulty, {}};
  int operation = 1;
  for (bool made = false; !made; ++operation) {
    shapefile::RemoveSet(*files_, base_);
    faulty.FailAt(operation);
    try {
      made = ExportPointShape(base_, path, run).made;
    } catch (const base::FileError& error) {
      EXPECT_EQ(error.Path().rfind(base_, 0), 0U);
      ExpectNothingWritten();
    }
  }
  EXPECT_GT(operation, 15);
}

}  // namespace
}  // namespace kestrin::point
