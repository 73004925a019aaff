#include "jobstore/job.h"

#include <gtest/gtest.h>

#include "jobstore/queries.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin {
namespace {

TEST(Query, YieldsTheRowsInTimeOrder) {
  const test::TempFolder folder;
  const std::string path =
      test::JobBuilder(folder / "a.sqlite").Epoch({2, 5}, 1, 2).Epoch({1, 9}, 3, 4).Finish();
  Job job(path);
  ASSERT_TRUE(job.IsOpen());
  Query<WireEpochs> epochs(job);
  EpochRow row;
  ASSERT_TRUE(epochs.Next(row));
  EXPECT_EQ(row.time, (GpsKey{1, 9}));
  EXPECT_EQ(row.east, 3);
  ASSERT_TRUE(epochs.Next(row));
  EXPECT_FALSE(epochs.Next(row));
  EXPECT_EQ(epochs.LastStep(), sqliteDefs::kDone);
}

}  // namespace
}  // namespace kestrin
