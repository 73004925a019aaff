#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tests/jobstore/opening/jobStates.h"
#include "tests/jobstore/opening/openResult.h"
#include "tests/jobstore/opening/ordinaryUser.h"
#include "tests/support/fork.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

using test::kCannotOpen;
using test::OpenResult;

TEST(JobOpening, APipeIsRefusedInsteadOfWaitedFor) {
  const test::TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(OpenResult(folder / "pipe"), kCannotOpen);
}

TEST(JobOpening, AFileWithoutPermissionIsANegativeResult) {
  const test::TempFolder folder;
  const std::string path = test::JobBuilder(folder / "job.sqlite").Epoch({1, 2}, 3, 4).Finish();
  std::filesystem::permissions(path, std::filesystem::perms::none);
  const test::OrdinaryUser user;
  if (!user.CanTell(path)) GTEST_SKIP() << "permissions cannot be made to bind";
  EXPECT_EQ(OpenResult(path), kCannotOpen);
}

/// A program that writes to a job when it is told to. It must be started before the job is opened:
/// a process that is born with an open job takes its locks for its own.
class Writer {
 public:
  explicit Writer(const std::string& path) {
    EXPECT_EQ(pipe(word_), 0);
    child_ = test::Fork([&] {
      char word = 0;
      if (read(word_[0], &word, 1) != 1) return 99;
      return test::Database(path).Result("UPDATE GpsDataTable SET speed = 9");
    });
  }
  ~Writer() {
    for (const int end : word_) close(end);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  int Result() const { return write(word_[1], "!", 1) == 1 ? test::Wait(child_) : -1; }

 private:
  int word_[2] = {-1, -1};
  pid_t child_ = -1;
};

TEST(LockedJob, StaysLockedThoughItIsOpenedAndClosedOnceMore) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), test::JobState::kAtRest);
  const Writer writer(path);
  jobstore::Job job(path);
  jobstore::Query<jobstore::WireEpochs> epochs(job);
  jobstore::WireEpochs::Row row;
  ASSERT_TRUE(epochs.Next(row));
  EXPECT_EQ(OpenResult(path), 0);
  EXPECT_EQ(writer.Result(), SQLITE_BUSY);
}

TEST(LockedJob, StaysLockedFromItsFirstStatementToItsEnd) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), test::JobState::kAtRest);
  const Writer during(path), afterwards(path);
  {
    jobstore::Job job(path);
    std::int32_t count = 0;
    ASSERT_TRUE(jobstore::ReadFirst<jobstore::EpochCount>(job, count));
    EXPECT_EQ(during.Result(), SQLITE_BUSY);
  }
  EXPECT_EQ(afterwards.Result(), SQLITE_OK);
}

}  // namespace
}  // namespace kestrin::opening
