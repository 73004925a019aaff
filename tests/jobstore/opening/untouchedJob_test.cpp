#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tests/jobstore/opening/folderState.h"
#include "tests/jobstore/opening/jobStates.h"
#include "tests/jobstore/opening/ordinaryUser.h"
#include "tests/support/database.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

using test::JobState;
namespace fs = std::filesystem;

/// The job's private copies that lie in the temporary folder now.
std::ptrdiff_t PrivateCopies() {
  const fs::directory_iterator entries(fs::temp_directory_path());
  return std::count_if(begin(entries), end(entries), [](const fs::directory_entry& entry) {
    return entry.path().filename().string().starts_with("kestrin-copy-");
  });
}

void ExpectAllEpochs(jobstore::Job& job) {
  jobstore::Query<jobstore::WireEpochs> epochs(job);
  jobstore::WireEpochs::Row row;
  int count = 0;
  for (; epochs.Next(row); ++count) {
    ASSERT_EQ(row.time, (jobstore::GpsKey{100, count}));
    ASSERT_EQ(row.east, count);
  }
  EXPECT_EQ(count, test::kStateEpochs);
  EXPECT_EQ(epochs.LastStep(), jobstore::kDone);
}

struct StateName {
  JobState state;
  const char* name;
};
void PrintTo(const StateName& state, std::ostream* out) { *out << state.name; }

class UntouchedJob : public testing::TestWithParam<StateName> {};

TEST_P(UntouchedJob, IsReadRightAndKeepsEveryByteOfItsFolder) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), GetParam().state);
  const auto before = test::StateOf(folder.Path());
  {
    jobstore::Job job(path);
    ASSERT_TRUE(job.IsOpen()) << job.Result();
    EXPECT_EQ(test::StateOf(folder.Path()), before) << "while open";
    ExpectAllEpochs(job);
    EXPECT_EQ(test::StateOf(folder.Path()), before) << "after reading";
  }
  EXPECT_EQ(test::StateOf(folder.Path()), before) << "after closing";
}

TEST_P(UntouchedJob, IsReadRightByTwoAtOnceAndAgain) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), GetParam().state);
  const auto before = test::StateOf(folder.Path());
  {
    jobstore::Job one(path), other(path);
    ExpectAllEpochs(one);
    ExpectAllEpochs(other);
  }
  jobstore::Job again(path);
  ExpectAllEpochs(again);
  EXPECT_EQ(test::StateOf(folder.Path()), before);
}

TEST_P(UntouchedJob, IsReadRightWhereNothingMayBeWritten) {
  using fs::perms;
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), GetParam().state);
  constexpr perms kRead = perms::owner_read | perms::group_read | perms::others_read;
  constexpr perms kEnter = perms::owner_exec | perms::group_exec | perms::others_exec;
  for (const auto& entry : fs::directory_iterator(folder.Path())) {
    fs::permissions(entry.path(), kRead);
  }
  fs::permissions(folder.Path(), kRead | kEnter);
  const auto before = test::StateOf(folder.Path());
  bool told = false;
  {
    const test::OrdinaryUser user;
    told = user.CanTell(path);
    if (told) {
      jobstore::Job job(path);
      EXPECT_TRUE(job.IsOpen()) << job.Result();
      ExpectAllEpochs(job);
    }
  }
  EXPECT_EQ(test::StateOf(folder.Path()), before);
  fs::permissions(folder.Path(), perms::owner_all);
  if (!told) GTEST_SKIP() << "permissions cannot be made to bind";
}

TEST_P(UntouchedJob, NamesWithUriCharactersAreFileNames) {
  const test::TempFolder folder;
  for (const char* name :
       {"100% #1.sqlite", "%41.sqlite", "Süd Acker 北.sqlite", "a&mode=rwc.sqlite",
#ifndef _WIN32
        // Names that Windows does not know.
        "what?mode=rwc&x.sqlite", " ends in blank ", "file:a.sqlite", ":memory:"
#endif
       }) {
    const std::string path = MakeJob(folder.Path(), GetParam().state, name);
    const auto before = test::StateOf(folder.Path());
    jobstore::Job job(path);
    ASSERT_TRUE(job.IsOpen()) << name;
    ExpectAllEpochs(job);
    EXPECT_EQ(test::StateOf(folder.Path()), before) << name;
  }
}

TEST_P(UntouchedJob, IsFoundByARelativePath) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), GetParam().state);
  const auto before = test::StateOf(folder.Path());
  {
    jobstore::Job job(fs::relative(path).string());
    ASSERT_TRUE(job.IsOpen());
    ExpectAllEpochs(job);
  }
  EXPECT_EQ(test::StateOf(folder.Path()), before);
}

TEST_P(UntouchedJob, IsFoundThroughALink) {
  const test::TempFolder folder, links;
  const std::string path = MakeJob(folder.Path(), GetParam().state);
  const auto before = test::StateOf(folder.Path());
  std::error_code failed;
  fs::create_symlink(path, links / "link.sqlite", failed);
  if (failed) GTEST_SKIP() << "no links here";
  jobstore::Job job(links / "link.sqlite");
  ASSERT_TRUE(job.IsOpen());
  ExpectAllEpochs(job);
  EXPECT_EQ(test::StateOf(folder.Path()), before);
  EXPECT_EQ(test::StateOf(links.Path()).size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(States, UntouchedJob,
                         testing::Values(StateName{JobState::kAtRest, "AtRest"},
                                         StateName{JobState::kJournalKept, "JournalKept"},
                                         StateName{JobState::kJournalEmpty, "JournalEmpty"},
                                         StateName{JobState::kCutOff, "CutOff"},
                                         StateName{JobState::kWriteAhead, "WriteAhead"},
                                         StateName{JobState::kWriteAheadEmpty, "WriteAheadEmpty"},
                                         StateName{JobState::kWriteAheadLog, "WriteAheadLog"},
                                         StateName{JobState::kWriteAheadIndexed,
                                                   "WriteAheadIndexed"}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST(CutOffJob, LeavesNoPrivateCopyBehind) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), JobState::kCutOff);
  const auto before = PrivateCopies();
  {
    jobstore::Job job(path);
    EXPECT_EQ(PrivateCopies(), before + 1);
  }
  EXPECT_EQ(PrivateCopies(), before);
}

constexpr const char* kMark = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";

/// The end of a journal that names a super-journal.
std::string NamingEnd(const std::string& name) {
  const auto number = [](std::size_t value) {
    return std::string{static_cast<char>(value >> 24), static_cast<char>(value >> 16),
                       static_cast<char>(value >> 8), static_cast<char>(value)};
  };
  std::size_t checksum = 0;
  for (const char c : name) checksum += static_cast<unsigned char>(c);
  return number(0x40000000 / 4096 + 1) + name + number(name.size()) + number(checksum) + kMark;
}

/// A cut-off job whose journal goes on with `end`.
std::string MakeCutOff(const test::TempFolder& folder, const std::string& end) {
  const std::string path = MakeJob(folder.Path(), JobState::kCutOff);
  std::ofstream(path + "-journal", std::ios::binary | std::ios::app) << end;
  return path;
}

TEST(CutOffJob, ASuperJournalsNameDeletesNothingHoweverItStandsThere) {
  const test::TempFolder elsewhere;
  const std::string victim = elsewhere / "victim";
  const std::string end = NamingEnd(victim);
  for (const std::string& forged : {end, end + end, end + kMark}) {
    std::ofstream(victim) << "precious";
    const test::TempFolder folder;
    const std::string path = MakeCutOff(folder, forged);
    const auto before = test::StateOf(folder.Path());
    {
      jobstore::Job job(path);
      ASSERT_TRUE(job.IsOpen());
      ExpectAllEpochs(job);
    }
    EXPECT_TRUE(fs::exists(victim));
    EXPECT_EQ(test::StateOf(folder.Path()), before);
  }
}

TEST(CutOffJob, IsRolledBackThoughTheSuperJournalItNamesIsMissing) {
  const test::TempFolder folder;
  jobstore::Job job(MakeCutOff(folder, NamingEnd(folder / "missing")));
  ASSERT_TRUE(job.IsOpen());
  ExpectAllEpochs(job);
}

TEST(LockedJob, AConsoleMayWriteWhileAJobIsOpenButNotBeingRead) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), JobState::kAtRest);
  const jobstore::Job job(path);
  EXPECT_EQ(test::Database(path).Result("UPDATE GpsDataTable SET speed=2"), SQLITE_OK);
}

}  // namespace
}  // namespace kestrin::opening
