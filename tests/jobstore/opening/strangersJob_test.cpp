#include <gtest/gtest.h>

#include <fstream>

#include "jobstore/job.h"
#include "jobstore/opening/jobHardening.h"
#include "jobstore/queries.h"
#include "tests/jobstore/opening/folderState.h"
#include "tests/support/database.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

constexpr std::int32_t kInterrupted = 9;
constexpr std::int32_t kCorruptPage = 11;
constexpr std::int32_t kTooBig = 18;
constexpr std::int32_t kNotAuthorized = 23;

/// Jobs made to do harm, and what becomes of them.
class StrangersJob : public testing::Test {
 protected:
  std::string Make(std::initializer_list<const char*> statements) {
    test::JobBuilder builder(folder_ / "job.sqlite");
    for (const char* statement : statements) builder.Execute(statement);
    return builder.Finish();
  }

  std::int32_t PrepareResult(jobstore::Job& job, const std::string& sql) {
    jobstore::Statement statement;
    return statement.linx_sqlite3_prepare(job.Library(), sql,
                                          static_cast<std::int32_t>(sql.size()));
  }

  test::TempFolder folder_;
};

TEST_F(StrangersJob, AViewInATablesPlaceFailsAtPrepare) {
  jobstore::Job job(Make({"ALTER TABLE GpsDataTable RENAME TO g",
                          "CREATE VIEW GpsDataTable AS SELECT * FROM g, g AS b, g AS c"}));
  ASSERT_TRUE(job.IsOpen());
  EXPECT_FALSE(jobstore::Query<jobstore::WireEpochs>(job).Prepared());
  EXPECT_TRUE(jobstore::Query<jobstore::References>(job).Prepared());
}

TEST_F(StrangersJob, AVirtualTableInATablesPlaceFailsAtPrepare) {
  if (sqlite3_compileoption_used("ENABLE_FTS5") == 0) GTEST_SKIP() << "no virtual tables here";
  jobstore::Job job(
      Make({"DROP TABLE GpsDataTable",
            "CREATE VIRTUAL TABLE GpsDataTable USING fts5(gpsWeek, gpsMsec, e_I_B__B2, "
            "n_I_B__B2, type)"}));
  ASSERT_TRUE(job.IsOpen());
  EXPECT_FALSE(jobstore::Query<jobstore::WireEpochs>(job).Prepared());
}

TEST_F(StrangersJob, ATriggerDoesNotRunEvenWhereItsTableIsWrittenTo) {
  test::Database job(
      Make({"CREATE TRIGGER x AFTER INSERT ON GpsDataTable BEGIN DELETE FROM GpsDataTable; END"}));
  const char* const insert = "INSERT INTO GpsDataTable(gpsWeek) VALUES (1)";
  EXPECT_EQ(job.Execute(insert).Number("SELECT count(*) FROM GpsDataTable"), 0) << "no trigger";
  ASSERT_EQ(HardenConnection(job.Handle()), SQLITE_OK);
  EXPECT_EQ(job.Result(insert), SQLITE_READONLY);
  job.Execute("PRAGMA query_only=OFF").Execute(insert);
  EXPECT_EQ(job.Number("SELECT count(*) FROM GpsDataTable"), 1);
}

TEST_F(StrangersJob, NoTextCanWriteAttachOrReachTheSettings) {
  const std::string path = Make({"CREATE TABLE t(a)"});
  const auto before = test::StateOf(folder_.Path());
  jobstore::Job job(path);
  for (const char* sql :
       {"INSERT INTO t VALUES(1)", "DELETE FROM t", "DROP TABLE t", "CREATE TEMP TABLE u(a)",
        "ATTACH 'other.sqlite' AS other", "PRAGMA journal_mode=WAL", "PRAGMA writable_schema=ON",
        "BEGIN IMMEDIATE", "PRAGMA query_only=OFF", "PRAGMA mmap_size=100000"}) {
    EXPECT_EQ(PrepareResult(job, sql), -kNotAuthorized) << sql;
  }
  EXPECT_LT(PrepareResult(job, "VACUUM INTO 'copy.sqlite'"), 0);
  EXPECT_LT(PrepareResult(job, "Select load_extension('x.so')"), 0);
  EXPECT_EQ(test::StateOf(folder_.Path()), before);
}

TEST_F(StrangersJob, AnOversizedTextEndsTheRowsWithItsCode) {
  jobstore::Job job(Make({"INSERT INTO VersionChangeTable VALUES(1, 2, '3.2.8-1')",
                          "INSERT INTO VersionChangeTable VALUES(1, 1, zeroblob(2000000))"}));
  ASSERT_TRUE(job.IsOpen());
  jobstore::Query<jobstore::NewestVersion> versions(job);
  std::string version;
  EXPECT_FALSE(versions.Next(version));
  EXPECT_EQ(versions.LastStep(), kTooBig);
}

/// The inner page of a table's tree `page`, with all its branches leading to `child`.
std::string AllLeadingTo(std::string page, std::size_t child) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(page[at]); };
  const auto lead = [&](std::size_t at) {
    page.replace(at, 4, {'\0', '\0', static_cast<char>(child >> 8), static_cast<char>(child)});
  };
  const std::size_t cells = byte(3) * 256U + byte(4);
  for (std::size_t cell = 0; cell < cells; ++cell) {
    lead(byte(12 + 2 * cell) * 256U + byte(13 + 2 * cell));
  }
  lead(8);
  return page;
}

TEST_F(StrangersJob, ATreeThatLeadsToItsPagesOverAndOverEnds) {
  test::JobBuilder builder(folder_ / "job.sqlite");
  for (int i = 0; i < 20000; ++i) builder.Epoch({1, i}, i, 0);
  const std::string path = builder.Finish();
  std::string bytes = test::FileBytes(path);
  const auto root = static_cast<std::size_t>(
      test::Ask(path, "SELECT rootpage FROM sqlite_master WHERE name='GpsDataTable'"));
  const std::string inner = bytes.substr((root - 1) * 4096, 4096);
  ASSERT_EQ(inner[0], 5);
  // Seven levels of more than a hundred branches each, over one leaf.
  const std::size_t first = bytes.size() / 4096 - 20;
  std::size_t page = root;
  for (std::size_t next = first; next < first + 7; ++next) {
    bytes.replace((page - 1) * 4096, 4096, AllLeadingTo(inner, next));
    page = next;
  }
  std::ofstream(path, std::ios::binary) << bytes;

  jobstore::Job job(path);
  ASSERT_TRUE(job.IsOpen());
  jobstore::Query<jobstore::WireEpochs> epochs(job);
  jobstore::WireEpochs::Row row;
  EXPECT_FALSE(epochs.Next(row));
  EXPECT_EQ(epochs.LastStep(), kInterrupted);
  std::int32_t count = 0;
  EXPECT_TRUE(jobstore::ReadFirst<jobstore::VersionTableCount>(job, count))
      << "the next query has its own budget";
}

TEST_F(StrangersJob, LongRowsThatShareTheirPagesEnd) {
  test::JobBuilder builder(folder_ / "job.sqlite");
  for (int i = 0; i < 5000; ++i) builder.Epoch({1, i}, i, 0);
  builder.Execute("UPDATE GpsDataTable SET e_I_B__B2=zeroblob(900000) WHERE gpsMsec=4999");
  const std::string path = builder.Finish();
  std::string bytes = test::FileBytes(path);
  const auto root =
      4096 * static_cast<std::size_t>(test::Ask(
                 path, "SELECT rootpage - 1 FROM sqlite_master WHERE name='GpsDataTable'"));
  ASSERT_EQ(bytes[root], 5);
  // The long row is the last leaf's only one; sixty times there, and on every leaf.
  const std::size_t child = static_cast<unsigned char>(bytes[root + 10]) * 256U +
                            static_cast<unsigned char>(bytes[root + 11]);
  const std::size_t leaf = 4096 * (child - 1);
  ASSERT_EQ(bytes[leaf + 4], 1);
  bytes[leaf + 4] = 60;
  for (std::size_t cell = 1; cell < 60; ++cell) {
    bytes.replace(leaf + 8 + 2 * cell, 2, bytes, leaf + 8, 2);
  }
  bytes.replace(root, 4096, AllLeadingTo(bytes.substr(root, 4096), child));
  std::ofstream(path, std::ios::binary) << bytes;

  jobstore::Job job(path);
  jobstore::Query<jobstore::WireEpochs> epochs(job);
  jobstore::WireEpochs::Row row;
  EXPECT_FALSE(epochs.Next(row));
  EXPECT_EQ(epochs.LastStep(), kInterrupted);
}

TEST_F(StrangersJob, ADamagedPageEndsTheRowsAndItsCodeStays) {
  test::JobBuilder builder(folder_ / "job.sqlite");
  builder.Execute("CREATE INDEX byTime ON GpsDataTable (gpsWeek, gpsMsec)");
  for (int i = 0; i < 5000; ++i) builder.Epoch({1, i}, i, 0);
  const std::string path = builder.Finish();
  // Walked along the index, rows come before the damage is met.
  test::DamageTablePage(path);
  jobstore::Job job(path);
  ASSERT_TRUE(job.IsOpen());
  jobstore::Query<jobstore::WireEpochs> epochs(job);
  jobstore::WireEpochs::Row row;
  int rows = 0;
  while (epochs.Next(row)) ++rows;
  EXPECT_GT(rows, 0);
  EXPECT_LT(rows, 5000);
  EXPECT_EQ(epochs.LastStep(), kCorruptPage);
  EXPECT_FALSE(epochs.Next(row)) << "ended rows start over";
  EXPECT_EQ(epochs.LastStep(), kCorruptPage);
}

TEST_F(StrangersJob, ADamagedPageUnderASortEndsTheRowsBeforeTheFirst) {
  test::JobBuilder builder(folder_ / "job.sqlite");
  for (int i = 0; i < 5000; ++i) builder.Epoch({1, i}, i, 0);
  const std::string path = builder.Finish();
  test::DamageTablePage(path);
  jobstore::Job job(path);
  ASSERT_TRUE(job.IsOpen());
  jobstore::Query<jobstore::WireEpochs> epochs(job);
  ASSERT_TRUE(epochs.Prepared());
  jobstore::WireEpochs::Row row;
  row.east = 42;
  EXPECT_FALSE(epochs.Next(row));
  EXPECT_EQ(epochs.LastStep(), kCorruptPage);
  EXPECT_EQ(row.east, 42);
}

}  // namespace
}  // namespace kestrin::opening
