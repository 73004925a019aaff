#include "jobstore/job.h"

#include <gtest/gtest.h>

#include <vector>

#include "jobstore/queries.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/recordingHost.h"
#include "tests/support/tempFolder.h"

namespace kestrin::jobstore {
namespace {

class QueryRows : public testing::Test {
 protected:
  /// The easts of the wire's rows, in the order they come.
  std::vector<double> Easts() {
    Job job(builder_.Finish());
    Query<WireEpochs> epochs(job);
    std::vector<double> easts;
    for (WireEpochs::Row row; epochs.Next(row);) easts.push_back(row.east);
    EXPECT_EQ(epochs.LastStep(), kDone);
    return easts;
  }

  /// An epoch that differs from the others by its east.
  void Add(GpsKey time, double east) { builder_.Epoch(time, east, 0); }

  test::TempFolder folder_;
  test::JobBuilder builder_{folder_ / "job.sqlite"};
};

/// Counts what it hears from inside the database's steps.
class Listener : public test::RecordingHost {
 public:
  void YieldInsideStep() noexcept override { ++heard; }

  int heard = 0;
};

TEST_F(QueryRows, HostHearsOfALongStepWhileItLasts) {
  for (int i = 5000; i-- > 0;) Add({1, i}, i);
  Listener host;
  Job job(builder_.Finish(), host);
  Query<WireEpochs> epochs(job);
  WireEpochs::Row row;
  EXPECT_TRUE(epochs.Next(row));
  EXPECT_GT(host.heard, 0);
}

TEST_F(QueryRows, ComeByWeekThenMillisecond) {
  Add({2, 5}, 3);
  Add({1, 9}, 2);
  Add({1, 8}, 1);
  Add({10, 0}, 4);
  EXPECT_EQ(Easts(), (std::vector<double>{1, 2, 3, 4}));
}

TEST_F(QueryRows, OfOneKeyKeepTheirOrderOfEntry) {
  for (int i = 0; i < 500; ++i) Add({1, i / 50}, i);
  std::vector<double> expected;
  for (int i = 0; i < 500; ++i) expected.push_back(i);
  EXPECT_EQ(Easts(), expected);
}

TEST_F(QueryRows, WithoutThe8192InTheirTypeAreInvisibleToTheRowsTheCountAndTheTimeSpan) {
  Add({1, 1}, 1);
  builder_.Execute("INSERT INTO GpsDataTable SELECT 9, 9, 5, 0, 0, 0, 0, 0, 0, 16384 + 4096, 0");
  Job job(builder_.Finish());
  WireEpochs::Row row;
  Query<WireEpochs> epochs(job);
  EXPECT_TRUE(epochs.Next(row));
  EXPECT_FALSE(epochs.Next(row));
  std::int32_t count = 0;
  ASSERT_TRUE(ReadFirst<EpochCount>(job, count));
  EXPECT_EQ(count, 1);
  GpsKey newest;
  ASSERT_TRUE(ReadFirst<NewestEpoch>(job, newest));
  EXPECT_EQ(newest, (GpsKey{1, 1}));
}

TEST(Job, WithoutAVersionTableCountsNone) {
  const test::TempFolder folder;
  Job job(
      test::JobBuilder(folder / "job.sqlite").Execute("DROP TABLE VersionChangeTable").Finish());
  std::int32_t count = 7;
  ASSERT_TRUE(ReadFirst<VersionTableCount>(job, count));
  EXPECT_EQ(count, 0);
  EXPECT_FALSE(Query<NewestVersion>(job).Prepared());
}

TEST(Job, AViewDoesNotCountAsAVersionTable) {
  const test::TempFolder folder;
  Job job(test::JobBuilder(folder / "job.sqlite")
              .Execute("DROP TABLE VersionChangeTable")
              .Execute("CREATE VIEW VersionChangeTable AS SELECT 1 AS sqlite_ver")
              .Finish());
  std::int32_t count = 7;
  ASSERT_TRUE(ReadFirst<VersionTableCount>(job, count));
  EXPECT_EQ(count, 0);
}

TEST(Job, TheNewestVersionIsTheLatestInTimeNotInEntry) {
  const test::TempFolder folder;
  Job job(test::JobBuilder(folder / "job.sqlite")
              .Version({2, 1}, "new")
              .Version({1, 9}, "old")
              .Finish());
  std::string version;
  ASSERT_TRUE(ReadFirst<NewestVersion>(job, version));
  EXPECT_EQ(version, "new");
}

TEST(Job, ThatIsMissingHasANegativeResultAndQueriesThatDoNotPrepare) {
  const test::TempFolder folder;
  Job job(folder / "missing.sqlite");
  EXPECT_FALSE(job.IsOpen());
  EXPECT_LT(job.Result(), 0);
  Query<WireEpochs> epochs(job);
  EXPECT_FALSE(epochs.Prepared());
  EXPECT_LT(epochs.Result(), 0);
  WireEpochs::Row row;
  EXPECT_FALSE(epochs.Next(row));
  EXPECT_NE(epochs.LastStep(), kDone);
}

TEST(Job, AMissingTableFailsAtPrepareAndYieldsNoRow) {
  const test::TempFolder folder;
  Job job(test::JobBuilder(folder / "job.sqlite").Execute("DROP TABLE GpsDataTable").Finish());
  Query<WireEpochs> epochs(job);
  EXPECT_LT(epochs.Result(), 0);
  WireEpochs::Row row;
  EXPECT_FALSE(epochs.Next(row));
}

TEST(Job, MaximaOfEmptyTablesAreZero) {
  const test::TempFolder folder;
  Job job(test::JobBuilder(folder / "job.sqlite").Finish());
  std::int32_t status = 7;
  ASSERT_TRUE(ReadFirst<BoomStatusMaximum>(job, status));
  EXPECT_EQ(status, 0);
  SlotRates rates{1, 2, 3};
  ASSERT_TRUE(ReadFirst<DesiredRateMaxima>(job, rates));
  EXPECT_EQ(rates, (std::array{0.0, 0.0, 0.0}));
}

TEST(Query, RowsThatEndedStayEnded) {
  const test::TempFolder folder;
  Job job(test::JobBuilder(folder / "job.sqlite").Epoch({1, 1}, 1, 1).Finish());
  Query<WireEpochs> epochs(job);
  WireEpochs::Row row;
  EXPECT_TRUE(epochs.Next(row));
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(epochs.Next(row));
  EXPECT_EQ(epochs.LastStep(), kDone);
}

}  // namespace
}  // namespace kestrin::jobstore
