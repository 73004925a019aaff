#include <gtest/gtest.h>

#include <fstream>

#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tests/jobstore/opening/folderState.h"
#include "tests/jobstore/opening/jobStates.h"
#include "tests/jobstore/opening/openResult.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

using test::kCannotOpen;
using test::OpenResult;

constexpr std::int32_t kNoDatabase = -26;
constexpr std::int32_t kCorrupt = -11;

std::string WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

std::string SmallJob(const test::TempFolder& folder) {
  return test::JobBuilder(folder / "job.sqlite").Epoch({1, 2}, 3, 4).Finish();
}

TEST(JobOpening, AMissingFileIsANegativeResultAndIsNotCreated) {
  const test::TempFolder folder;
  EXPECT_EQ(OpenResult(folder / "missing.sqlite"), kCannotOpen);
  EXPECT_EQ(OpenResult(folder / "no folder/missing.sqlite"), kCannotOpen);
  EXPECT_EQ(test::StateOf(folder.Path()).size(), 1U);
}

TEST(JobOpening, AnEmptyPathAndAFolderAreNoJobs) {
  const test::TempFolder folder;
  EXPECT_EQ(OpenResult(""), kCannotOpen);
  EXPECT_EQ(OpenResult(folder.Path().string()), kCannotOpen);
}

TEST(JobOpening, NothingAfterAZeroByteOfThePathIsDropped) {
  const test::TempFolder folder;
  const std::string path = SmallJob(folder);
  EXPECT_EQ(OpenResult(path), 0);
  EXPECT_EQ(OpenResult(path + std::string("\0tail", 5)), kCannotOpen);
}

TEST(JobOpening, AnEmptyFileIsNoJobAndStaysEmpty) {
  const test::TempFolder folder;
  const std::string path = WriteFile(folder / "empty.sqlite", "");
  WriteFile(path + "-wal", "left over");
  WriteFile(path + "-journal", "left over");
  const auto before = test::StateOf(folder.Path());
  EXPECT_EQ(OpenResult(path), kNoDatabase);
  EXPECT_EQ(test::StateOf(folder.Path()), before);
}

TEST(JobOpening, AFileThatIsNoDatabaseFailsAtOpen) {
  const test::TempFolder folder;
  EXPECT_EQ(OpenResult(WriteFile(folder / "a", "some notes about the field")), kNoDatabase);
  EXPECT_EQ(OpenResult(WriteFile(folder / "b", std::string(10000, 'x'))), kNoDatabase);
  EXPECT_EQ(OpenResult(WriteFile(folder / "c", std::string("SQLite format 3\0", 16))), kNoDatabase);
}

TEST(JobOpening, ADamagedHeaderFailsAtOpen) {
  const test::TempFolder folder;
  std::string bytes = test::FileBytes(SmallJob(folder));
  bytes[17] = 3;  // a page size that is none
  EXPECT_EQ(OpenResult(WriteFile(folder / "damaged.sqlite", bytes)), kNoDatabase);
}

TEST(JobOpening, ADamagedSchemaFailsAtOpen) {
  const test::TempFolder folder;
  std::string bytes = test::FileBytes(SmallJob(folder));
  bytes.replace(100, 8, "\xff\xff\xff\xff\xff\xff\xff\xff");
  EXPECT_EQ(OpenResult(WriteFile(folder / "damaged.sqlite", bytes)), kCorrupt);
}

TEST(JobOpening, AnInvalidLogIsLeftAndTheJobReadWithoutIt) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), test::JobState::kWriteAhead);
  WriteFile(path + "-wal", std::string(5000, 'x'));
  const auto before = test::StateOf(folder.Path());
  {
    jobstore::Job job(path);
    std::int32_t count = 0;
    ASSERT_TRUE(jobstore::ReadFirst<jobstore::EpochCount>(job, count));
    EXPECT_EQ(count, test::kStateEpochs);
  }
  EXPECT_EQ(test::StateOf(folder.Path()), before);
}

TEST(JobOpening, ALogBesideAJobInRollbackModeIsReadAsTheLibraryReadsIt) {
  const test::TempFolder folder;
  const std::string path = SmallJob(folder);
  WriteFile(path + "-wal", std::string(5000, 'x'));
  const auto before = test::StateOf(folder.Path());
  EXPECT_EQ(OpenResult(path), 0);
  EXPECT_EQ(test::StateOf(folder.Path()), before);
}

}  // namespace
}  // namespace kestrin::opening
