#include "jobstore/sqliteDefs.h"

#include <gtest/gtest.h>

#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::jobstore {
namespace {

constexpr std::int32_t kMisuse = 21;

/// A job with one table t(i, d, s, e, n, b) of one row, opened.
class OpenedLibrary : public testing::Test {
 protected:
  OpenedLibrary() {
    const std::string path =
        test::JobBuilder(folder_ / "job.sqlite")
            .Execute("CREATE TABLE t(i, d, s, e, n, b)")
            .Execute("INSERT INTO t VALUES(-7, 2.5, 'Süd', '', NULL, x'410042')")
            .Finish();
    database_ = library_.linx_sqlite3_open(path);
  }

  std::int32_t Prepare(const std::string& sql) {
    return library_.linx_sqlite3_prepare(database_, sql, static_cast<std::int32_t>(sql.size()));
  }

  /// The text of a column of the first row, by the three steps of every reader.
  std::string Text(const std::string& column) {
    const auto statement = Prepare("Select " + column + " From t");
    library_.linx_sqlite3_step(statement);
    std::string text;
    const auto size = library_.linx_getColSize(statement, 0);
    if (size > 0) {
      text.assign(static_cast<std::size_t>(size), ' ');
      library_.linx_getText(statement, 0, text);
    }
    library_.linx_sqlite3_finalize(statement);
    return text;
  }

  test::TempFolder folder_;
  sqliteDefs library_;
  std::int32_t database_ = 0;
};

TEST_F(OpenedLibrary, HandlesOfASuccessAreNeverNegative) {
  EXPECT_GE(database_, 0);
  EXPECT_GE(Prepare("Select i From t"), 0);
}

TEST_F(OpenedLibrary, AMissingTableFailsAtPrepareWithANegativeStatement) {
  EXPECT_EQ(Prepare("Select a From Missing"), -1);
}

TEST_F(OpenedLibrary, ATextWithoutAStatementFailsAtPrepare) {
  EXPECT_LT(Prepare(""), 0);
  EXPECT_LT(Prepare("-- nothing"), 0);
}

TEST_F(OpenedLibrary, OnlyTheFirstStatementAndOnlyLengthCharactersArePrepared) {
  auto statement = Prepare("Select i From t; Select Nonsense From Nowhere");
  EXPECT_EQ(library_.linx_sqlite3_step(statement), 100);
  EXPECT_EQ(library_.linx_getInt(statement, 0), -7);
  statement = library_.linx_sqlite3_prepare(database_, "Select i From t and more", 15);
  EXPECT_EQ(library_.linx_sqlite3_step(statement), 100);
  EXPECT_GT(library_.linx_sqlite3_prepare(database_, "Select i From t", 1000), 0);
  EXPECT_LT(library_.linx_sqlite3_prepare(database_, "Select i From t", -1), 0);
}

TEST_F(OpenedLibrary, ARowIs100AndTheEnd101) {
  const auto statement = Prepare("Select i From t");
  EXPECT_EQ(library_.linx_sqlite3_step(statement), 100);
  EXPECT_EQ(library_.linx_sqlite3_step(statement), 101);
}

TEST_F(OpenedLibrary, GettersConvertAsTheLibraryDoes) {
  const auto statement = Prepare("Select i, d, s, n From t");
  ASSERT_EQ(library_.linx_sqlite3_step(statement), 100);
  EXPECT_EQ(library_.linx_getInt(statement, 0), -7);
  EXPECT_EQ(library_.linx_getDouble(statement, 0), -7.0);
  EXPECT_EQ(library_.linx_getInt(statement, 1), 2);
  EXPECT_EQ(library_.linx_getDouble(statement, 1), 2.5);
  EXPECT_EQ(library_.linx_getInt(statement, 2), 0);
  EXPECT_EQ(library_.linx_getInt(statement, 3), 0);
  EXPECT_EQ(library_.linx_getDouble(statement, 3), 0.0);
}

TEST_F(OpenedLibrary, TextsPassThroughUnchanged) {
  EXPECT_EQ(Text("s"), "Süd");
  EXPECT_EQ(Text("b"), std::string("A\0B", 3));
  EXPECT_EQ(Text("i"), "-7");
}

TEST_F(OpenedLibrary, AnEmptyTextAndNullGiveTheEmptyText) {
  EXPECT_EQ(Text("e"), "");
  EXPECT_EQ(Text("n"), "");
}

TEST_F(OpenedLibrary, GetTextFillsTheFrontOfTheBufferOnly) {
  const auto statement = Prepare("Select s From t");
  library_.linx_sqlite3_step(statement);
  std::string buffer = "------";
  library_.linx_getText(statement, 0, buffer);
  EXPECT_EQ(buffer, "Süd--");
  buffer = "-";
  library_.linx_getText(statement, 0, buffer);
  EXPECT_EQ(buffer, "S");
  buffer.clear();
  library_.linx_getText(statement, 0, buffer);
  EXPECT_EQ(buffer, "");
}

TEST_F(OpenedLibrary, AColumnTheResultDoesNotHaveIsZeroOrEmpty) {
  const auto statement = Prepare("Select i From t");
  ASSERT_EQ(library_.linx_sqlite3_step(statement), 100);
  for (const std::int32_t column : {1, 1000, -1, INT32_MIN, INT32_MAX}) {
    std::string buffer = "as it was";
    EXPECT_EQ(library_.linx_getInt(statement, column), 0);
    EXPECT_EQ(library_.linx_getDouble(statement, column), 0.0);
    EXPECT_EQ(library_.linx_getColSize(statement, column), 0);
    library_.linx_getText(statement, column, buffer);
    EXPECT_EQ(buffer, "as it was");
  }
}

TEST_F(OpenedLibrary, ColumnsWithoutARowAreZeroOrEmpty) {
  const auto statement = Prepare("Select i From t");
  EXPECT_EQ(library_.linx_getInt(statement, 0), 0);
  library_.linx_sqlite3_step(statement);
  library_.linx_sqlite3_step(statement);
  EXPECT_EQ(library_.linx_getInt(statement, 0), 0);
  EXPECT_EQ(library_.linx_getColSize(statement, 0), 0);
}

TEST_F(OpenedLibrary, HandlesThatAreNoneAreSafe) {
  const auto finalized = Prepare("Select i From t");
  library_.linx_sqlite3_finalize(finalized);
  for (const std::int32_t handle : {finalized, 0, -1, 99, INT32_MIN, INT32_MAX}) {
    std::string buffer = "as it was";
    EXPECT_EQ(library_.linx_sqlite3_step(handle), kMisuse);
    EXPECT_EQ(library_.linx_getInt(handle, 0), 0);
    EXPECT_EQ(library_.linx_getDouble(handle, 0), 0.0);
    EXPECT_EQ(library_.linx_getColSize(handle, 0), 0);
    library_.linx_getText(handle, 0, buffer);
    EXPECT_EQ(buffer, "as it was");
    library_.linx_sqlite3_finalize(handle);
  }
  for (const std::int32_t handle : {0, -14, 99, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(library_.linx_sqlite3_prepare(handle, "Select 1", 8), -kMisuse);
    library_.linx_sqlite3_close(handle);
  }
  EXPECT_GT(Prepare("Select i From t"), 0);
}

TEST_F(OpenedLibrary, ClosingFinalizesTheStatementsOfThatDatabaseOnly) {
  const auto other = library_.linx_sqlite3_open(folder_ / "job.sqlite");
  const auto one = Prepare("Select i From t");
  const auto two = library_.linx_sqlite3_prepare(other, "Select d From t", 15);
  library_.linx_sqlite3_close(database_);
  EXPECT_EQ(library_.linx_sqlite3_step(one), kMisuse);
  EXPECT_LT(Prepare("Select i From t"), 0);
  EXPECT_EQ(library_.linx_sqlite3_step(two), 100);
  EXPECT_EQ(library_.linx_getDouble(two, 0), 2.5);
}

TEST_F(OpenedLibrary, HandlesStaySmallHoweverManyAreUsedInTurn) {
  for (int i = 0; i < 1000; ++i) {
    const auto statement = Prepare("Select i From t");
    ASSERT_LE(statement, 2);
    library_.linx_sqlite3_finalize(statement);
  }
}

}  // namespace
}  // namespace kestrin::jobstore
