#include "jobstore/sqliteDefs.h"

#include <gtest/gtest.h>

#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::jobstore {
namespace {

constexpr std::int32_t kMisuse = 21;
constexpr std::int32_t kInterrupted = 9;

/// A job with one table t(i, d, s, e, n, b) of one row, opened.
class OpenedDatabase : public testing::Test {
 protected:
  OpenedDatabase() {
    const std::string path =
        test::JobBuilder(folder_ / "job.sqlite")
            .Execute("CREATE TABLE t(i, d, s, e, n, b)")
            .Execute("INSERT INTO t VALUES(-7, 2.5, 'Süd', '', NULL, x'410042')")
            .Finish();
    opened_ = database_.linx_sqlite3_open(path);
  }

  std::int32_t Prepare(Statement& statement, const std::string& sql) {
    return statement.linx_sqlite3_prepare(database_, sql, static_cast<std::int32_t>(sql.size()));
  }
  std::int32_t Prepare(const std::string& sql) {
    Statement statement;
    return Prepare(statement, sql);
  }
  Statement Prepared(const std::string& sql) {
    Statement statement;
    EXPECT_GT(Prepare(statement, sql), 0);
    return statement;
  }

  /// The text of a column of the first row.
  std::string Text(const std::string& column) {
    Statement statement = Prepared("Select " + column + " From t");
    statement.linx_sqlite3_step();
    std::string text;
    ReadText(statement, 0, text);
    return text;
  }

  test::TempFolder folder_;
  Database database_;
  std::int32_t opened_ = -1;
};

TEST_F(OpenedDatabase, ResultsOfASuccessAreNeverNegative) {
  EXPECT_GE(opened_, 0);
  EXPECT_GE(Prepare("Select i From t"), 0);
}

TEST_F(OpenedDatabase, StatementsAreNumberedInTheOrderTheyArePrepared) {
  EXPECT_EQ(Prepare("Select i From t"), 1);
  EXPECT_LT(Prepare("Select a From Missing"), 0);
  EXPECT_EQ(Prepare("Select i From t"), 2);
}

TEST_F(OpenedDatabase, AMissingTableFailsAtPrepareWithANegativeResult) {
  EXPECT_EQ(Prepare("Select a From Missing"), -1);
}

TEST_F(OpenedDatabase, ATextWithoutAStatementFailsAtPrepare) {
  EXPECT_LT(Prepare(""), 0);
  EXPECT_LT(Prepare("-- nothing"), 0);
}

TEST_F(OpenedDatabase, OnlyTheFirstStatementAndOnlyLengthCharactersArePrepared) {
  Statement statement = Prepared("Select i From t; Select Nonsense From Nowhere");
  EXPECT_EQ(statement.linx_sqlite3_step(), 100);
  EXPECT_EQ(statement.linx_getInt(0), -7);
  EXPECT_GT(statement.linx_sqlite3_prepare(database_, "Select i From t and more", 15), 0);
  EXPECT_EQ(statement.linx_sqlite3_step(), 100);
  EXPECT_GT(statement.linx_sqlite3_prepare(database_, "Select i From t", 1000), 0);
  EXPECT_LT(statement.linx_sqlite3_prepare(database_, "Select i From t", -1), 0);
}

TEST_F(OpenedDatabase, ARowIs100AndTheEnd101) {
  Statement statement = Prepared("Select i From t");
  EXPECT_EQ(statement.linx_sqlite3_step(), 100);
  EXPECT_EQ(statement.linx_sqlite3_step(), 101);
}

TEST_F(OpenedDatabase, GettersConvertAsTheLibraryDoes) {
  Statement statement = Prepared("Select i, d, s, n From t");
  ASSERT_EQ(statement.linx_sqlite3_step(), 100);
  EXPECT_EQ(statement.linx_getInt(0), -7);
  EXPECT_EQ(statement.linx_getDouble(0), -7.0);
  EXPECT_EQ(statement.linx_getInt(1), 2);
  EXPECT_EQ(statement.linx_getDouble(1), 2.5);
  EXPECT_EQ(statement.linx_getInt(2), 0);
  EXPECT_EQ(statement.linx_getInt(3), 0);
  EXPECT_EQ(statement.linx_getDouble(3), 0.0);
}

TEST_F(OpenedDatabase, TextsPassThroughUnchanged) {
  EXPECT_EQ(Text("s"), "Süd");
  EXPECT_EQ(Text("b"), std::string("A\0B", 3));
  EXPECT_EQ(Text("i"), "-7");
}

TEST_F(OpenedDatabase, AnEmptyTextAndNullGiveTheEmptyText) {
  EXPECT_EQ(Text("e"), "");
  EXPECT_EQ(Text("n"), "");
}

TEST_F(OpenedDatabase, GetTextFillsTheFrontOfTheBufferOnly) {
  Statement statement = Prepared("Select s From t");
  statement.linx_sqlite3_step();
  std::string buffer = "------";
  statement.linx_getText(0, buffer);
  EXPECT_EQ(buffer, "Süd--");
  buffer = "-";
  statement.linx_getText(0, buffer);
  EXPECT_EQ(buffer, "S");
  buffer.clear();
  statement.linx_getText(0, buffer);
  EXPECT_EQ(buffer, "");
}

void ExpectZeroOrEmpty(const Statement& statement, std::int32_t column) {
  std::string buffer = "as it was";
  EXPECT_EQ(statement.linx_getInt(column), 0);
  EXPECT_EQ(statement.linx_getDouble(column), 0.0);
  EXPECT_EQ(statement.linx_getColSize(column), 0);
  statement.linx_getText(column, buffer);
  EXPECT_EQ(buffer, "as it was");
}

TEST_F(OpenedDatabase, AColumnTheResultDoesNotHaveIsZeroOrEmpty) {
  Statement statement = Prepared("Select i From t");
  ASSERT_EQ(statement.linx_sqlite3_step(), 100);
  for (const std::int32_t column : {1, 1000, -1, INT32_MIN, INT32_MAX}) {
    ExpectZeroOrEmpty(statement, column);
  }
}

TEST_F(OpenedDatabase, ColumnsWithoutARowAreZeroOrEmpty) {
  Statement statement = Prepared("Select i From t");
  ExpectZeroOrEmpty(statement, 0);
  statement.linx_sqlite3_step();
  statement.linx_sqlite3_step();
  ExpectZeroOrEmpty(statement, 0);
}

TEST_F(OpenedDatabase, ColumnSaysWhatItsValueIs) {
  Statement statement = Prepared("Select i, d, s, n, b From t");
  statement.linx_sqlite3_step();
  const int types[] = {SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, SQLITE_NULL, SQLITE_BLOB};
  for (std::int32_t i = 0; i < std::ssize(types); ++i)
    EXPECT_EQ(statement.linx_getColType(i), types[i]);
}

TEST(Statement, ComparesAsTextWhereTheLibraryDoes) {
  const test::TempFolder folder;
  std::string columns = "a";
  const char* const types[] = {"integer", "TEXT",    "varchar(3)", "nclob", "real",    "blob",
                               "",        "charint", "blob text",  "point", "anything"};
  for (const char* type : types) columns += ", c" + std::to_string(columns.size()) + " " + type;
  test::JobBuilder builder(folder / "job.sqlite");
  builder.Execute("CREATE TABLE t(" + columns + "); INSERT INTO t SELECT " +
                  "NULL, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9");
  jobstore::Database database;
  database.linx_sqlite3_open(builder.Finish());
  const std::string sql = "Select * From t";
  Statement all;
  all.linx_sqlite3_prepare(database, sql, static_cast<std::int32_t>(sql.size()));
  all.linx_sqlite3_step();
  for (std::int32_t i = 0; i < 12; ++i) {
    // A column of texts stores the number as one.
    EXPECT_EQ(all.ComparesAsText(i), all.linx_getColType(i) == SQLITE_TEXT) << i;
  }
}

TEST_F(OpenedDatabase, AStatementThatIsNoneIsSafe) {
  Statement finalized = Prepared("Select i From t");
  finalized.linx_sqlite3_finalize();
  Statement never;
  for (Statement* statement : {&finalized, &never}) {
    EXPECT_EQ(statement->linx_sqlite3_step(), kMisuse);
    ExpectZeroOrEmpty(*statement, 0);
    EXPECT_EQ(statement->linx_getColType(0), SQLITE_NULL);
    EXPECT_FALSE(statement->ComparesAsText(0));
    statement->linx_sqlite3_finalize();
  }
}

TEST_F(OpenedDatabase, AFailedPrepareLeavesNoStatement) {
  Statement statement = Prepared("Select i From t");
  ASSERT_LT(Prepare(statement, "Select a From Missing"), 0);
  EXPECT_EQ(statement.linx_sqlite3_step(), kMisuse);
}

TEST_F(OpenedDatabase, AClosedDatabasePreparesNothing) {
  database_.linx_sqlite3_close();
  EXPECT_EQ(Prepare("Select i From t"), -kMisuse);
  database_.linx_sqlite3_close();
  EXPECT_EQ(database_.linx_sqlite3_open(folder_ / "missing.sqlite"), -14);
  EXPECT_EQ(Prepare("Select i From t"), -kMisuse);
}

/// A job with a table n of 200 rows, opened, and with a change table that cannot be read.
class CrossedDatabase : public OpenedDatabase {
 protected:
  CrossedDatabase() {
    test::JobBuilder builder(folder_ / "crossed.sqlite");
    builder.Execute("CREATE TABLE n(i)").ActualRates({1, 0}, 30);
    for (int i = 0; i < 200; ++i) builder.Execute("INSERT INTO n VALUES(1)");
    const std::string path = builder.Finish();
    test::DamageTable(path, "AsAppliedActRateChangeTable");
    opened_ = database_.linx_sqlite3_open(path);
  }

  /// The end of counting the rows of n with each other, which takes some 200,000 of the library's
  /// steps of the four million that a job of this size is given.
  std::int32_t Count() {
    return Prepared("Select Count(*) From n a, n b Where a.i = b.i").linx_sqlite3_step();
  }
};

TEST_F(CrossedDatabase, KeepsTheFirstErrorOfAnyStatementUntilItOpensAnother) {
  EXPECT_EQ(Count(), 100);
  EXPECT_EQ(database_.FirstError(), kDone);
  EXPECT_EQ(Prepared("Select * From AsAppliedActRateChangeTable").linx_sqlite3_step(), 11);
  EXPECT_EQ(Prepared("Select Count(*) From n a, n b, n c Where a.i = c.i").linx_sqlite3_step(),
            kInterrupted);
  EXPECT_EQ(Count(), 100);
  EXPECT_EQ(database_.FirstError(), 11);
  ASSERT_GE(database_.linx_sqlite3_open(folder_ / "job.sqlite"), 0);
  EXPECT_EQ(database_.FirstError(), kDone);
}

TEST_F(CrossedDatabase, GivesEachStatementItsOwnStepsUntilTheyAreShared) {
  for (int i = 0; i < 60; ++i) ASSERT_EQ(Count(), 100) << i;
  database_.ShareSteps();
  std::int32_t result = 100;
  for (int i = 0; i < 60 && result == 100; ++i) result = Count();
  EXPECT_EQ(result, kInterrupted);
}

TEST_F(OpenedDatabase, TwoOfOneFileShareNothing) {
  Database other;
  ASSERT_GE(other.linx_sqlite3_open(folder_ / "job.sqlite"), 0);
  Statement statement;
  ASSERT_GT(statement.linx_sqlite3_prepare(other, "Select d From t", 15), 0);
  database_.linx_sqlite3_close();
  EXPECT_EQ(statement.linx_sqlite3_step(), 100);
  EXPECT_EQ(statement.linx_getDouble(0), 2.5);
}

}  // namespace
}  // namespace kestrin::jobstore
