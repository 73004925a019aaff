#include "jobstore/opening/readOnlyVfs.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "tests/jobstore/opening/folderState.h"
#include "tests/jobstore/opening/jobStates.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

int Result(sqlite3* database, const char* sql) {
  return sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
}

class ReadOnlyLayer : public testing::TestWithParam<FileLocks> {};

TEST_P(ReadOnlyLayer, RefusesToWriteCreateAndDeleteEvenWhenAskedTo) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), test::JobState::kJournalKept);
  const auto before = test::StateOf(folder.Path());
  sqlite3* database = nullptr;
  ASSERT_EQ(
      sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, ReadOnlyVfs(GetParam())),
      SQLITE_OK);
  EXPECT_EQ(Result(database, "DELETE FROM GpsDataTable"), SQLITE_READONLY);
  EXPECT_NE(Result(database, "VACUUM"), SQLITE_OK);
  Result(database, "PRAGMA journal_mode=WAL");
  Result(database, "PRAGMA journal_mode=DELETE");
  sqlite3_close(database);
  EXPECT_EQ(test::StateOf(folder.Path()), before);

  sqlite3_vfs* layer = sqlite3_vfs_find(ReadOnlyVfs(GetParam()));
  ASSERT_NE(layer, nullptr);
  EXPECT_NE(layer->xDelete(layer, path.c_str(), 0), SQLITE_OK);
  EXPECT_NE(sqlite3_open_v2((folder / "new").c_str(), &database,
                            SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, layer->zName),
            SQLITE_OK);
  sqlite3_close(database);
  EXPECT_EQ(test::StateOf(folder.Path()), before);
}

TEST_P(ReadOnlyLayer, StillSortsOnTheTemporaryDisk) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), test::JobState::kAtRest);
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READONLY, ReadOnlyVfs(GetParam())),
            SQLITE_OK);
  EXPECT_EQ(Result(database, "PRAGMA cache_size=1; PRAGMA temp_store=FILE"), SQLITE_OK);
  // A sort of some 20 MB, well past what the library keeps in memory.
  EXPECT_EQ(Result(database,
                   "SELECT a.gpsMsec, randomblob(200) AS r FROM GpsDataTable a, "
                   "(SELECT 1 FROM GpsDataTable LIMIT 30) ORDER BY r"),
            SQLITE_OK);
  sqlite3_close(database);
}

INSTANTIATE_TEST_SUITE_P(Locks, ReadOnlyLayer,
                         testing::Values(FileLocks::kShared, FileLocks::kNone));

TEST(ReadOnlyVfs, IsOneLayerPerKindHoweverOftenItIsAskedFor) {
  EXPECT_EQ(ReadOnlyVfs(FileLocks::kShared), ReadOnlyVfs(FileLocks::kShared));
  EXPECT_STRNE(ReadOnlyVfs(FileLocks::kShared), ReadOnlyVfs(FileLocks::kNone));
}

}  // namespace
}  // namespace kestrin::opening
