#include "export/wire/wireExport.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geo/workingPlane.h"
#include "jobstore/job.h"
#include "tests/export/setFixture.h"
#include "tests/support/faultyFileSystem.h"

namespace kestrin::wire {
namespace {

using test::kLatitude;
using test::kLongitude;
constexpr bool kBegins = true;

class WireExport : public test::SetFixture {
 protected:
  /// Of a job with one reference location.
  WireExport() : SetFixture(ExportWireShape, "job_WIRE") {
    builder_.Reference({1, 0}, kLatitude, kLongitude);
  }
};

TEST_F(WireExport, StretchIsAPolylineWithItsLengthInThePlane) {
  builder_.Epoch({1, 0}, 0, 0, 0, kBegins).Epoch({1, 100}, 3, 4).Epoch({1, 200}, 3, 10.128);
  const test::ReadSet set = Exported();
  EXPECT_EQ(set.type, 3);
  ASSERT_EQ(set.records.size(), 1U);
  EXPECT_EQ(set.records[0].parts, std::vector<std::int32_t>{0});
  EXPECT_EQ(set.records[0].points, (std::vector{PointAt(0, 0), PointAt(3, 4), PointAt(3, 10.128)}));
  EXPECT_EQ(set.rows[0], (std::vector<std::string>{"       0", "     11.13"}));
}

TEST_F(WireExport, TableIsIdAndMetresOfTheDayOfWriting) {
  builder_.Epoch({1, 0}, 0, 0);
  const test::ReadSet set = Exported();
  EXPECT_EQ(set.fields, (std::vector<test::ReadField>{{"ID", 'N', 8, 0}, {"METERS", 'N', 10, 2}}));
  EXPECT_EQ(set.date, (std::array<int, 3>{2006, 7, 9}));
  const std::string dbf = test::FileBytes(base_ + ".dbf");
  EXPECT_EQ(dbf.substr(8, 4), std::string("\x61\0\x13\0", 4));
}

TEST_F(WireExport, BitBeginsANewStretchAndTheJoinCountsInNeither) {
  builder_.Epoch({1, 0}, 0, 0, 0, kBegins)
      .Epoch({1, 100}, 0, 5)
      .Epoch({1, 200}, 100, 5, 0, kBegins)
      .Epoch({1, 300}, 100, 7.5);
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.records.size(), 2U);
  EXPECT_EQ(set.records[0].points, (std::vector{PointAt(0, 0), PointAt(0, 5)}));
  EXPECT_EQ(set.records[1].points, (std::vector{PointAt(100, 5), PointAt(100, 7.5)}));
  EXPECT_EQ(set.rows[0][1], "         5");
  EXPECT_EQ(set.rows[1], (std::vector<std::string>{"       1", "       2.5"}));
}

TEST_F(WireExport, FileBoxHoldsEveryStretch) {
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 100}, 500, 300, 0, kBegins).Epoch({1, 200}, -200, -100);
  const test::ReadSet set = Exported();
  geo::Box box = set.records[0].box;
  for (const auto& [x, y] : {PointAt(0, 0), PointAt(500, 300), PointAt(-200, -100)}) {
    box = {std::min(box.xMin, x), std::min(box.yMin, y), std::max(box.xMax, x),
           std::max(box.yMax, y)};
  }
  EXPECT_EQ(set.box, box);
}

TEST_F(WireExport, FirstRowStartsARecordAlsoWithoutTheBit) {
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 100}, 0, 1);
  EXPECT_EQ(Exported().records.size(), 1U);
}

TEST_F(WireExport, ConsecutiveBeginningsGiveRecordsOfOnePointAndNoLength) {
  builder_.Epoch({1, 0}, 0, 0, 0, kBegins)
      .Epoch({1, 100}, 50, 0, 0, kBegins)
      .Epoch({1, 200}, 90, 0, 0, kBegins);
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.records.size(), 3U);
  EXPECT_EQ(set.records[1].points, std::vector{PointAt(50, 0)});
  for (const auto& row : set.rows) EXPECT_EQ(row[1], "         0");
}

TEST_F(WireExport, OneRowGivesOneRecordOfOnePoint) {
  builder_.Epoch({1, 0}, 2, 3);
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.records.size(), 1U);
  EXPECT_EQ(set.records[0].points, std::vector{PointAt(2, 3)});
  const auto [x, y] = PointAt(2, 3);
  EXPECT_EQ(set.box, (geo::Box{x, y, x, y}));
}

TEST_F(WireExport, RowsThatTakeNoPartNeitherEndARecordNorAddLength) {
  jobstore::EpochRow out;
  out.time = {1, 100};
  out.east = 1000;
  out.type = jobstore::EpochRow::kNewStretch | 1;
  builder_.Epoch({1, 0}, 0, 0).Epoch(out).Epoch({1, 200}, 0, 2);
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.records.size(), 1U);
  EXPECT_EQ(set.records[0].points, (std::vector{PointAt(0, 0), PointAt(0, 2)}));
  EXPECT_EQ(set.rows[0][1], "         2");
  EXPECT_EQ(host_.rows, 2);
}

TEST_F(WireExport, OtherBitsOfTypeMeanNothing) {
  jobstore::EpochRow row;
  row.time = {1, 100};
  row.north = 2;
  row.type = ~16384;
  builder_.Epoch({1, 0}, 0, 0).Epoch(row);
  EXPECT_EQ(Exported().records.size(), 1U);
}

TEST_F(WireExport, RowsComeInOrderOfWeekThenMillisecond) {
  builder_.Epoch({2, 0}, 0, 3).Epoch({1, 900}, 0, 2).Epoch({1, 100}, 0, 1);
  EXPECT_EQ(Exported().records[0].points,
            (std::vector{PointAt(0, 1), PointAt(0, 2), PointAt(0, 3)}));
}

TEST_F(WireExport, RowsOfEqualKeysAllTakePartInTheirStoredOrder) {
  builder_.Epoch({1, 0}, 0, 1).Epoch({1, 0}, 0, 2).Epoch({1, 0}, 0, 4);
  const test::ReadSet set = Exported();
  EXPECT_EQ(set.records[0].points, (std::vector{PointAt(0, 1), PointAt(0, 2), PointAt(0, 4)}));
  EXPECT_EQ(set.rows[0][1], "         3");
}

TEST_F(WireExport, ReferenceAppliesFromExactlyItsOwnTime) {
  builder_.Reference({1, 200}, kLatitude + 0.01, kLongitude)
      .Epoch({1, 0}, 0, 0)
      .Epoch({1, 199}, 0, 1)
      .Epoch({1, 200}, 0, 2);
  const auto points = Exported().records[0].points;
  EXPECT_EQ(points[1], PointAt(0, 1));
  EXPECT_EQ(points[2], PointAt(0, 2, kLatitude + 0.01));
}

TEST_F(WireExport, LengthRunsAcrossAChangeOfReference) {
  builder_.Reference({1, 100}, kLatitude + 0.01, kLongitude)
      .Epoch({1, 0}, 0, 0)
      .Epoch({1, 100}, 0, 0);
  const geo::UtmPoint from =
      geo::WorkingPlane(jobstore::ReferenceRow{{}, kLatitude, kLongitude}).At(0, 0);
  const geo::UtmPoint to =
      geo::WorkingPlane(jobstore::ReferenceRow{{}, kLatitude + 0.01, kLongitude}).At(0, 0);
  const double metres = std::hypot(to.easting - from.easting, to.northing - from.northing);
  EXPECT_NEAR(std::stod(Exported().rows[0][1]), metres, 0.0051);
}

/// An eighth of a metre is exact beside any easting.
TEST_F(WireExport, LengthIsRoundedTiesToEven) {
  builder_.Epoch({1, 0}, 0, 0)
      .Epoch({1, 1}, 0.125, 0)
      .Epoch({1, 2}, 0, 0, 0, kBegins)
      .Epoch({1, 3}, 0.375, 0);
  const test::ReadSet set = Exported();
  EXPECT_EQ(set.rows[0][1], "      0.12");
  EXPECT_EQ(set.rows[1][1], "      0.38");
}

TEST_F(WireExport, LengthOfTenOrMoreCharactersKeepsItsFirst) {
  for (int i = 0; i < 40; ++i) builder_.Epoch({1, i}, 0, i % 2 == 0 ? 0 : 1234567.25);
  // 39 * 1234567.25 = 48148122.75
  EXPECT_EQ(Exported().rows[0][1], "48148122.7");
}

TEST_F(WireExport, LengthThatIsNoNumberIsZero) {
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 100}, 0, 0);
  builder_.Execute("UPDATE GpsDataTable SET e_I_B__B2 = 9e999 WHERE gpsMsec = 100");
  EXPECT_TRUE(Export().made);
  const std::string dbf = test::FileBytes(base_ + ".dbf");
  EXPECT_EQ(dbf.substr(97), "        0         0\x1A");
}

TEST_F(WireExport, CountsAndYieldsOncePerRow) {
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 1}, 0, 1).Epoch({1, 2}, 0, 2);
  const exports::ExportOutcome outcome = Export();
  EXPECT_EQ(outcome.epochs, 3);
  EXPECT_EQ(outcome.lastStep, jobstore::kDone);
  EXPECT_EQ(host_.rows, 3);
  EXPECT_EQ(host_.yields, 3);
}

TEST_F(WireExport, MissingJobShowsItsResultAndTheOldSetIsGone) {
  LeaveOldSet();
  const std::string none = folder_ / "none.sqlite";
  const std::int32_t result = jobstore::Job(none).Result();
  ASSERT_LT(result, 0);
  ExpectNothingWritten(Export(none));
  EXPECT_EQ(host_.messages, std::vector<std::string>{"Error opening: " + std::to_string(result)});
}

TEST_F(WireExport, FailedReferenceQueryShowsItsResult) {
  LeaveOldSet();
  builder_.Epoch({1, 0}, 0, 0).Execute("DROP TABLE ReferenceLocationChangeTable");
  const std::string path = builder_.Finish();
  jobstore::Job job(path);
  const std::int32_t result = jobstore::Query<jobstore::References>(job).Result();
  ASSERT_LT(result, 0);
  ExpectNothingWritten(Export(path));
  EXPECT_EQ(host_.messages,
            std::vector<std::string>{"Error creating statement: " + std::to_string(result)});
}

TEST_F(WireExport, FailedGpsQueryShowsTheHandleOfTheReferenceStatement) {
  LeaveOldSet();
  builder_.Execute("DROP TABLE GpsDataTable");
  const std::string path = builder_.Finish();
  jobstore::Job job(path);
  const std::int32_t handle = jobstore::Query<jobstore::References>(job).Result();
  ASSERT_GE(handle, 0);
  const exports::ExportOutcome outcome = Export(path);
  ExpectNothingWritten(outcome);
  // Told already.
  EXPECT_EQ(outcome.lastStep, jobstore::kDone);
  EXPECT_EQ(host_.messages,
            std::vector<std::string>{"Error creating statement: " + std::to_string(handle)});
}

TEST_F(WireExport, NoReferenceComesBeforeAFailedGpsQuery) {
  builder_.Execute("DELETE FROM ReferenceLocationChangeTable").Execute("DROP TABLE GpsDataTable");
  ExpectNothingWritten(Export());
  EXPECT_TRUE(host_.messages.empty());
}

TEST_F(WireExport, NoReferenceLeavesNothingAndSaysNothing) {
  LeaveOldSet();
  builder_.Epoch({1, 0}, 0, 0).Execute("DELETE FROM ReferenceLocationChangeTable");
  ExpectNothingWritten(Export());
  EXPECT_TRUE(host_.messages.empty());
  EXPECT_EQ(host_.rows, 0);
}

TEST_F(WireExport, NoRowThatTakesPartLeavesNothingAndSaysNothing) {
  LeaveOldSet();
  jobstore::EpochRow out;
  out.type = jobstore::EpochRow::kNewStretch;
  builder_.Epoch(out);
  ExpectNothingWritten(Export());
  EXPECT_TRUE(host_.messages.empty());
}

TEST_F(WireExport, EmptyJobPathOnlyRemovesTheOldSet) {
  LeaveOldSet();
  ExpectNothingWritten(Export(""));
  EXPECT_TRUE(host_.messages.empty());
}

TEST_F(WireExport, EmptyBasePathDoesNothing) {
  builder_.Epoch({1, 0}, 0, 0);
  base_.clear();
  ExpectNothingWritten(Export());
  EXPECT_TRUE(host_.messages.empty());
  EXPECT_EQ(host_.rows, 0);
}

TEST_F(WireExport, RowsThatEndEarlyLeaveACompleteSetOfThoseBefore) {
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
  ASSERT_EQ(set.records.size(), 1U);
  EXPECT_EQ(static_cast<std::int64_t>(set.records[0].points.size()), outcome.epochs);
  EXPECT_EQ(test::Trimmed(set.rows[0][1]), std::to_string(outcome.epochs - 1));
}

TEST_F(WireExport, CancelledRunLeavesNothing) {
  LeaveOldSet();
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 1}, 0, 1).Epoch({1, 2}, 0, 2);
  const std::string path = builder_.Finish();
  for (host_.cancelAt = 1; host_.cancelAt <= 3; ++host_.cancelAt) {
    host_.yields = 0;
    EXPECT_THROW(Export(path), base::RunCancelled);
    ExpectNothingWritten();
  }
}

TEST_F(WireExport, WhicheverFileOperationFailsNothingIsLeft) {
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 1}, 0, 1);
  const std::string path = builder_.Finish();
  test::FaultyFileSystem faulty(*files_);
  exports::ExportRun run{host_, faulty, {}};
  for (int operation = 1;; ++operation) {
    shapefile::RemoveSet(*files_, base_);
    faulty.FailAt(operation);
    try {
      EXPECT_TRUE(ExportWireShape(base_, path, run).made);
      EXPECT_LT(faulty.Operations(), operation);
      // Three removals, creations, syncs, closes and renames at the very least.
      EXPECT_GT(operation, 15);
      break;
    } catch (const base::FileError& error) {
      EXPECT_EQ(error.Path().rfind(base_, 0), 0U);
      ExpectNothingWritten();
    }
  }
}

TEST_F(WireExport, TellsTheMetresThatItsRecordsShowTogether) {
  builder_.Epoch({1, 0}, 0, 0)
      .Epoch({1, 1}, 0, 10.128)
      .Epoch({1, 2}, 0, 0, 0, kBegins)
      .Epoch({1, 3}, 0, 10.128)
      // Too long for its field, which shows 12345678.9 of it.
      .Epoch({1, 4}, 0, 0, 0, kBegins)
      .Epoch({1, 5}, 12345678.91, 0);
  const exports::ExportOutcome outcome = Export();
  double shown = 0;
  for (const auto& row : test::ReadShapeSet(base_).rows) shown += std::stod(row[1]);
  ASSERT_EQ(outcome.figures.size(), 1U);
  EXPECT_EQ(outcome.figures[0].name, "meters");
  EXPECT_DOUBLE_EQ(outcome.figures[0].value, shown);
  EXPECT_DOUBLE_EQ(shown, 10.13 + 10.13 + 12345678.9);
}

TEST_F(WireExport, SetIsTheSameToTheByteEachTime) {
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 1}, 1, 1).Epoch({1, 2}, 0, 2, 0, kBegins);
  const std::string path = builder_.Finish();
  Export(path);
  const std::string shp = test::FileBytes(base_ + ".shp");
  const std::string dbf = test::FileBytes(base_ + ".dbf");
  Export(path);
  EXPECT_EQ(test::FileBytes(base_ + ".shp"), shp);
  EXPECT_EQ(test::FileBytes(base_ + ".dbf"), dbf);
}

}  // namespace
}  // namespace kestrin::wire
