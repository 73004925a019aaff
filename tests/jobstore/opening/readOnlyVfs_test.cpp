#include "jobstore/opening/readOnlyVfs.h"

#include <gtest/gtest.h>

#include "tests/jobstore/opening/folderState.h"
#include "tests/jobstore/opening/jobStates.h"
#include "tests/support/database.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

class ReadOnlyLayer : public testing::TestWithParam<FileLocks> {};

TEST_P(ReadOnlyLayer, RefusesToWriteCreateAndDeleteEvenWhenAskedTo) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), test::JobState::kJournalKept);
  const auto before = test::StateOf(folder.Path());
  {
    test::Database database(path, SQLITE_OPEN_READWRITE, ReadOnlyVfs(GetParam()));
    EXPECT_EQ(database.Result("DELETE FROM GpsDataTable"), SQLITE_READONLY);
    EXPECT_NE(database.Result("VACUUM"), SQLITE_OK);
    database.Result("PRAGMA journal_mode=WAL");
    database.Result("PRAGMA journal_mode=DELETE");
  }
  EXPECT_EQ(test::StateOf(folder.Path()), before);

  sqlite3_vfs* layer = sqlite3_vfs_find(ReadOnlyVfs(GetParam()));
  ASSERT_NE(layer, nullptr);
  EXPECT_NE(layer->xDelete(layer, path.c_str(), 0), SQLITE_OK);
  EXPECT_ANY_THROW(test::Database(folder / "new", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                                  ReadOnlyVfs(GetParam())));
  EXPECT_EQ(test::StateOf(folder.Path()), before);
}

TEST_P(ReadOnlyLayer, StillSortsOnTheTemporaryDisk) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder.Path(), test::JobState::kAtRest);
  test::Database database(path, SQLITE_OPEN_READONLY, ReadOnlyVfs(GetParam()));
  database.Execute("PRAGMA cache_size=1; PRAGMA temp_store=FILE");
  // A sort of some 20 MB, well past what the library keeps in memory.
  database.Execute(
      "SELECT a.gpsMsec, randomblob(200) AS r FROM GpsDataTable a, "
      "(SELECT 1 FROM GpsDataTable LIMIT 30) ORDER BY r");
}

INSTANTIATE_TEST_SUITE_P(Locks, ReadOnlyLayer,
                         testing::Values(FileLocks::kShared, FileLocks::kNone));

TEST(ReadOnlyVfs, IsOneLayerPerKindHoweverOftenItIsAskedFor) {
  EXPECT_EQ(ReadOnlyVfs(FileLocks::kShared), ReadOnlyVfs(FileLocks::kShared));
  EXPECT_STRNE(ReadOnlyVfs(FileLocks::kShared), ReadOnlyVfs(FileLocks::kNone));
}

}  // namespace
}  // namespace kestrin::opening
