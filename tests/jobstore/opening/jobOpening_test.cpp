#include <gtest/gtest.h>

#include <fstream>

#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tests/jobstore/opening/folderState.h"
#include "tests/jobstore/opening/jobStates.h"
#include "tests/jobstore/opening/openResult.h"
#include "tests/support/database.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

using test::kCannotOpen;
using test::OpenResult;

constexpr std::int32_t kNoTable = -1;
constexpr std::int32_t kCorrupt = -11;
constexpr std::int32_t kNoDatabase = -26;

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

/// The job opens, and every query of it ends with this result.
void ExpectUnreadable(const std::string& path, std::int32_t result) {
  jobstore::Job job(path);
  EXPECT_EQ(job.Result(), 0) << path;
  EXPECT_EQ(jobstore::Query<jobstore::References>(job).Result(), result) << path;
  jobstore::Query<jobstore::WireEpochs> epochs(job);
  EXPECT_EQ(epochs.Result(), result) << path;
  jobstore::WireEpochs::Row row;
  EXPECT_FALSE(epochs.Next(row)) << path;
}

TEST(JobOpening, AnEmptyFileOpensHasNoTableAndStaysEmpty) {
  const test::TempFolder folder;
  const std::string path = WriteFile(folder / "empty.sqlite", "");
  const auto before = test::StateOf(folder.Path());
  ExpectUnreadable(path, kNoTable);
  EXPECT_EQ(test::StateOf(folder.Path()), before);
}

TEST(JobOpening, WhatLiesBesideAnEmptyFileIsLeftThere) {
  for (const char* suffix : {"-wal", "-journal"}) {
    const test::TempFolder folder;
    const std::string path = WriteFile(folder / "empty.sqlite", "");
    WriteFile(path + suffix, "left over");
    const auto before = test::StateOf(folder.Path());
    {
      jobstore::Job job(path);
      EXPECT_EQ(job.Result(), 0);
      EXPECT_LT(jobstore::Query<jobstore::WireEpochs>(job).Result(), 0);
    }
    EXPECT_EQ(test::StateOf(folder.Path()), before) << suffix;
  }
}

TEST(JobOpening, AFileThatIsNoDatabaseOpensAndFailsAtPrepare) {
  const test::TempFolder folder;
  ExpectUnreadable(WriteFile(folder / "a", "some notes about the field"), kNoDatabase);
  ExpectUnreadable(WriteFile(folder / "b", std::string(10000, 'x')), kNoDatabase);
  ExpectUnreadable(WriteFile(folder / "c", std::string("SQLite format 3\0", 16)), kNoDatabase);
  // What says of itself that it is written ahead.
  ExpectUnreadable(WriteFile(folder / "d", std::string(10000, '\2')), kNoDatabase);
}

TEST(JobOpening, AJobCutShortOpensAndFailsAtPrepareHoweverItIsJournaled) {
  for (const test::JobState state : {test::JobState::kAtRest, test::JobState::kWriteAhead}) {
    const test::TempFolder folder;
    const std::string bytes = test::FileBytes(MakeJob(folder.Path(), state));
    constexpr std::size_t kPage = 4096;
    for (const std::size_t size : {std::size_t{99}, std::size_t{50'000}, bytes.size() - kPage}) {
      ExpectUnreadable(WriteFile(folder / "cut.sqlite", bytes.substr(0, size)), kCorrupt);
    }
  }
}

TEST(JobOpening, ADamagedHeaderFailsAtPrepare) {
  const test::TempFolder folder;
  std::string bytes = test::FileBytes(SmallJob(folder));
  bytes[17] = 3;  // a page size that is none
  ExpectUnreadable(WriteFile(folder / "damaged.sqlite", bytes), kNoDatabase);
}

TEST(JobOpening, ADamagedSchemaFailsAtPrepare) {
  const test::TempFolder folder;
  std::string bytes = test::FileBytes(SmallJob(folder));
  bytes.replace(100, 8, "\xff\xff\xff\xff\xff\xff\xff\xff");
  ExpectUnreadable(WriteFile(folder / "damaged.sqlite", bytes), kCorrupt);
}

TEST(JobOpening, AJobThatItsConsoleKeepsLockedFailsAtPrepare) {
  const test::TempFolder folder;
  const std::string path = SmallJob(folder);
  test::Database console(path);
  console.Execute("BEGIN EXCLUSIVE");
  constexpr std::int32_t kBusy = -5;
  ExpectUnreadable(path, kBusy);
  console.Execute("ROLLBACK");
  EXPECT_EQ(OpenResult(path), 0);
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
