#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tests/jobstore/opening/folderState.h"
#include "tests/jobstore/opening/jobStates.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

constexpr std::int32_t kWriteFailed = 10;
constexpr std::int32_t kFull = 13;

/// No file may grow past `bytes` in this scope, as on a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit full{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
  void (*signal_)(int);
};

TEST(FullTemporaryDisk, EndsTheRowsOfALongSortWithAnErrorCode) {
  const test::TempFolder folder;
  const std::string path = test::JobBuilder(folder / "job.sqlite")
                               .Execute(
                                   "WITH RECURSIVE i(n) AS (SELECT 1 UNION ALL SELECT n + 1 "
                                   "FROM i WHERE n < 100000) INSERT INTO GpsDataTable SELECT "
                                   "1, n, n + .1, n, n, n, n, n, n, 8192, 0 FROM i")
                               .Finish();
  jobstore::Job job(path);
  jobstore::Query<jobstore::PointEpochs> epochs(job);
  jobstore::PointEpochs::Row row;
  {
    const FullDisk disk(50'000);
    EXPECT_FALSE(epochs.Next(row));
  }
  EXPECT_TRUE(epochs.LastStep() == kFull || epochs.LastStep() == kWriteFailed) << epochs.LastStep();
  int rows = 0;
  jobstore::Query<jobstore::PointEpochs> again(job);
  while (again.Next(row)) ++rows;
  EXPECT_EQ(rows, 100000);
}

TEST(FullTemporaryDisk, MakesACutOffJobANegativeResultAndLeavesNothing) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), test::JobState::kCutOff);
  const auto before = test::StateOf(folder.Path());
  {
    const FullDisk disk(50'000);
    const jobstore::Job job(path);
    EXPECT_LT(job.Result(), 0);
  }
  EXPECT_EQ(test::StateOf(folder.Path()), before);
  EXPECT_TRUE(jobstore::Job(path).IsOpen());
}

}  // namespace
}  // namespace kestrin::opening
