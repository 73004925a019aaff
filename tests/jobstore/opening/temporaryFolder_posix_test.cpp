#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "jobstore/job.h"
#include "jobstore/opening/jobCopy.h"
#include "jobstore/queries.h"
#include "tests/jobstore/opening/folderState.h"
#include "tests/jobstore/opening/jobStates.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

/// In this scope temporary files are to lie in a folder in which nobody can make one.
class NoTemporaryFiles {
 public:
  NoTemporaryFiles() {
    if (const char* usual = std::getenv("TMPDIR")) usual_ = usual;
    setenv("TMPDIR", "/proc", 1);
  }
  ~NoTemporaryFiles() { usual_.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", usual_.c_str(), 1); }
  NoTemporaryFiles(const NoTemporaryFiles&) = delete;
  NoTemporaryFiles& operator=(const NoTemporaryFiles&) = delete;

 private:
  std::string usual_;
};

TEST(WithoutTemporaryFiles, ACutOffJobIsANegativeResult) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), test::JobState::kCutOff);
  const auto before = test::StateOf(folder.Path());
  {
    const NoTemporaryFiles none;
    EXPECT_LT(jobstore::Job(path).Result(), 0);
  }
  EXPECT_EQ(test::StateOf(folder.Path()), before);
}

TEST(WithoutTemporaryFiles, TheCopyOfAJobWithALogIsAFailureAndAbsent) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), test::JobState::kWriteAheadLog);
  const auto before = test::StateOf(folder.Path());
  {
    const NoTemporaryFiles none;
    EXPECT_THROW(CopyJob(*base::NativeFileSystem(), path, folder / "copy.sqlite"), base::FileError);
  }
  EXPECT_EQ(test::StateOf(folder.Path()), before);
}

TEST(JournalBesideAJobInWriteAheadMode, ThatIsNoneLeavesAllRowsToBeRead) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), test::JobState::kWriteAhead);
  std::ofstream(path + "-journal") << "no journal";
  const auto before = test::StateOf(folder.Path());
  {
    jobstore::Job job(path);
    std::int32_t rows = 0;
    EXPECT_TRUE(jobstore::ReadFirst<jobstore::EpochCount>(job, rows));
    EXPECT_EQ(rows, test::kStateEpochs);
  }
  EXPECT_EQ(test::StateOf(folder.Path()), before);
}

}  // namespace
}  // namespace kestrin::opening
