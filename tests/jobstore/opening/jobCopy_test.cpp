#include "jobstore/opening/jobCopy.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/jobstore/opening/folderState.h"
#include "tests/jobstore/opening/jobStates.h"
#include "tests/support/database.h"
#include "tests/support/faultyFileSystem.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

using test::JobState;
namespace fs = std::filesystem;

class JobCopy : public testing::Test {
 protected:
  std::string Make(JobState state) { return MakeJob(jobs_.Path(), state); }

  /// Copies the job, which keeps its bytes, and returns the copy.
  std::string Copy(const std::string& job) {
    const auto before = test::StateOf(jobs_.Path());
    CopyJob(*files_, job, copy_);
    EXPECT_EQ(test::StateOf(jobs_.Path()), before);
    return copy_;
  }

  /// All of the job's epochs, as any program reads them, in one file.
  void ExpectWhole(const std::string& copy) const {
    EXPECT_EQ(test::Ask(copy, "SELECT count(*) FROM GpsDataTable WHERE e_I_B__B2 = gpsMsec"),
              test::kStateEpochs);
    EXPECT_EQ(test::Ask(copy, "SELECT count(*) FROM GpsDataTable"), test::kStateEpochs);
    test::Database(copy).Each("PRAGMA integrity_check", [&](sqlite3_stmt* row) {
      EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(row, 0)), "ok");
      EXPECT_EQ(test::StateOf(sets_.Path()).size(), 2U) << "nothing beside it while it is read";
    });
  }

  void ExpectFailure(const std::string& job, const std::string& path) {
    const std::size_t before = test::StateOf(sets_.Path()).size();
    try {
      CopyJob(*files_, job, copy_);
      ADD_FAILURE() << "copied";
    } catch (const base::FileError& error) {
      EXPECT_EQ(error.Path(), path);
      EXPECT_NE(error.Reason(), "");
    }
    EXPECT_EQ(test::StateOf(sets_.Path()).size(), before);
  }

  test::TempFolder jobs_, sets_;
  std::string copy_ = sets_ / "copy.sqlite";
  std::unique_ptr<base::FileSystem> files_ = base::NativeFileSystem();
};

TEST_F(JobCopy, OfAJobInOneFileHasItsBytes) {
  for (const JobState state : {JobState::kAtRest, JobState::kJournalKept, JobState::kJournalEmpty,
                               JobState::kWriteAhead, JobState::kWriteAheadEmpty}) {
    const test::TempFolder folder;
    const std::string job = MakeJob(folder.Path(), state);
    CopyJob(*files_, job, folder / "copy");
    EXPECT_TRUE(test::FileBytes(folder / "copy") == test::FileBytes(job))
        << static_cast<int>(state);
  }
}

TEST_F(JobCopy, HoldsWhatStandsInTheWriteAheadLog) {
  ExpectWhole(Copy(Make(JobState::kWriteAheadLog)));
}

TEST_F(JobCopy, HoldsWhatStandsInAnIndexedWriteAheadLog) {
  ExpectWhole(Copy(Make(JobState::kWriteAheadIndexed)));
}

TEST_F(JobCopy, IsRolledBackWhereATransactionWasCutOff) {
  ExpectWhole(Copy(Make(JobState::kCutOff)));
}

TEST_F(JobCopy, FollowsALinkToTheJobsLog) {
  const std::string job = Make(JobState::kWriteAheadLog);
  const test::TempFolder links;
  std::error_code failed;
  fs::create_symlink(base::PathOf(job), base::PathOf(links / "link.sqlite"), failed);
  if (failed) GTEST_SKIP() << "no links here";
  ExpectWhole(Copy(links / "link.sqlite"));
}

TEST_F(JobCopy, NeverReplacesAFile) {
  std::ofstream(copy_) << "kept";
  for (const JobState state : {JobState::kAtRest, JobState::kWriteAheadLog, JobState::kCutOff}) {
    const test::TempFolder folder;
    ExpectFailure(MakeJob(folder.Path(), state), copy_);
    EXPECT_EQ(test::FileBytes(copy_), "kept");
  }
}

TEST_F(JobCopy, ThatFailsIsAbsent) {
  test::FaultyFileSystem faulty(*files_);
  faulty.FailAt(1);
  EXPECT_THROW(CopyJob(faulty, Make(JobState::kWriteAheadLog), copy_), base::FileError);
  EXPECT_EQ(faulty.FailedOperation(), "copy");
  EXPECT_EQ(test::StateOf(sets_.Path()).size(), 1U);
}

/// Writes to the job as soon as it is being copied.
struct MeanwhileFiles : test::FaultyFileSystem {
  using FaultyFileSystem::FaultyFileSystem;
  void Copy(const std::string& from, const std::string& to) override {
    FaultyFileSystem::Copy(from, to);
    result = test::Database(from).Result("UPDATE GpsDataTable SET speed = 9");
  }
  int result = SQLITE_OK;
};

TEST_F(JobCopy, KeepsAConsoleFromWritingMeanwhile) {
  MeanwhileFiles files(*files_);
  CopyJob(files, Make(JobState::kAtRest), copy_);
  EXPECT_EQ(files.result, SQLITE_BUSY);
  ExpectWhole(copy_);
}

TEST_F(JobCopy, OfAJobThatIsWrittenAheadMeanwhileIsAbsent) {
  MeanwhileFiles files(*files_);
  const std::string job = Make(JobState::kWriteAhead);
  try {
    CopyJob(files, job, copy_);
    ADD_FAILURE() << "copied";
  } catch (const base::FileError& error) {
    EXPECT_EQ(error.Path(), job);
    EXPECT_EQ(error.Reason(), "another program is writing to it");
  }
  EXPECT_EQ(files.result, SQLITE_OK);
  EXPECT_EQ(test::StateOf(sets_.Path()).size(), 1U);
}

TEST_F(JobCopy, OfAJobThatItsConsoleKeepsLockedIsAFailure) {
  const std::string job = Make(JobState::kAtRest);
  test::Database console(job);
  console.Execute("BEGIN EXCLUSIVE");
  ExpectFailure(job, job);
}

TEST_F(JobCopy, OfAJobThatIsGoneIsAFailure) { ExpectFailure(jobs_ / "gone", jobs_ / "gone"); }

TEST_F(JobCopy, OfNoDatabaseBesideALogIsAFailure) {
  const std::string job = jobs_ / "job.sqlite";
  std::ofstream(job) << std::string(5000, 'x');
  std::ofstream(job + "-wal") << "left over";
  ExpectFailure(job, job);
}

TEST_F(JobCopy, OfNoDatabaseAloneHasItsBytes) {
  const std::string job = jobs_ / "job.sqlite";
  std::ofstream(job) << std::string(5000, 'x');
  EXPECT_TRUE(test::FileBytes(Copy(job)) == std::string(5000, 'x'));
}

TEST_F(JobCopy, IsNotMadeOfAJobThatAForgedJournalMakesEnormous) {
  const std::string job = Make(JobState::kCutOff);
  std::string journal = test::FileBytes(job + "-journal");
  // The pages that the job had before the transaction: 64 MB of them.
  journal.replace(16, 4, std::string("\x00\x00\x40\x00", 4));
  std::ofstream(job + "-journal", std::ios::binary | std::ios::trunc) << journal;
  std::string bytes = test::FileBytes(job);
  // How many it has now counts for nothing then.
  bytes.replace(28, 4, std::string(4, '\0'));
  std::ofstream(job, std::ios::binary | std::ios::trunc) << bytes;
  ExpectFailure(job, job);
}

}  // namespace
}  // namespace kestrin::opening
