#include <fstream>
#include <regex>

#include "tests/support/database.h"
#include "tests/support/jobBuilder.h"
#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using test::CommandResult;
using test::FileBytes;

class ExportFailure : public test::ExportCommand {
 protected:
  std::string Builder(const std::string& name) const { return folder_ / name; }
};

TEST_F(ExportFailure, MissingJobIsNamedOnceForAllKindsAndTheOthersAreMade) {
  Sample("there.sqlite", 20);
  const CommandResult run =
      Run({"--kind", "wire", "--kind", "poly", "gone.sqlite", "there.sqlite"});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.err, "kestrin-export: gone.sqlite: Error opening: -14 (no such file)\n");
  EXPECT_EQ(run.out,
            "TrevaskData/there/2025Jun3/there_2025Jun3_WIRE.shp: 20 epochs\n"
            "TrevaskData/there/2025Jun3/there_2025Jun3_POLY.shp: 20 epochs\n");
  EXPECT_FALSE(Exists("gone.sqlite"));
}

TEST_F(ExportFailure, MissingJobTakesTheOldSetOfItsBaseAway) {
  Sample("job.sqlite", 20);
  Run({"--kind", "wire", "--base", "x", "job.sqlite"});
  ASSERT_TRUE(HasSet("x_WIRE"));
  const CommandResult run = Run({"--kind", "wire", "--base", "x", "gone.sqlite"});
  EXPECT_EQ(run.err, "kestrin-export: gone.sqlite: wire: Error opening: -14 (no such file)\n");
  EXPECT_EQ(run.code, 1);
  EXPECT_FALSE(Exists("x_WIRE.shp") || Exists("x_WIRE.shx") || Exists("x_WIRE.dbf"));
}

TEST_F(ExportFailure, JobThatIsNoDatabaseOpensAndHasNoStatement) {
  const std::string whole = FileBytes(Sample("whole.sqlite"));
  const std::pair<std::string, std::string> broken[] = {
      {"", "-1 (it lacks a table or column of a job)"},
      {std::string(5000, 'x'), "-26 (not a database)"},
      {whole.substr(0, whole.size() / 2), "-11 (the file is damaged or cut short)"}};
  for (const auto& [bytes, code] : broken) {
    std::ofstream(folder_ / "text.sqlite", std::ios::binary | std::ios::trunc) << bytes;
    for (const char* target : {"--out=out", "--base=x"}) {
      const CommandResult run = Run({"--kind", "wire", target, "text.sqlite"});
      EXPECT_EQ(run.code, 1);
      EXPECT_EQ(run.out, "");
      EXPECT_EQ(run.err,
                "kestrin-export: text.sqlite: wire: Error creating statement: " + code + "\n");
    }
    EXPECT_EQ(FileBytes(folder_ / "text.sqlite"), bytes);
  }
}

TEST_F(ExportFailure, JobWithoutRowsOrReferenceHasNothingToExport) {
  test::JobBuilder(Builder("rows.sqlite")).Epoch({1345, 0}, 0, 0).Finish();
  test::JobBuilder(Builder("reference.sqlite")).Reference({1345, 0}, 42, -93).Finish();
  for (const char* job : {"rows.sqlite", "reference.sqlite"}) {
    for (const char* target : {"--out=out", "--base=x"}) {
      const CommandResult run = Run({"--kind", "wire", "--kind", "point", target, job});
      EXPECT_EQ(run.code, 1);
      EXPECT_EQ(run.out, "");
      EXPECT_EQ(run.err,
                std::string("kestrin-export: ") + job + ": No set made: nothing to export\n");
    }
  }
}

TEST_F(ExportFailure, RowsLeftOutAreSaidOfANetSetThatIsNotMade) {
  test::JobBuilder job(Builder("job.sqlite"));
  job.Reference({1345, 0}, 42, -93).Implement({1345, 0}, "Boom", {{1e7, 0, 0, 0}});
  for (int i = 0; i < 8; ++i) job.Epoch({1345, i * 1000}, i, i);
  job.Finish();
  const CommandResult run = Run({"--kind", "net", "--base", "x", "job.sqlite"});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.err,
            "kestrin-export: job.sqlite: net: No set made: nothing to export; left out: 8 rows "
            "without sound numbers\n");
}

TEST_F(ExportFailure, SubscriptErrorNamesItsKindAndTheOtherKindsAreMade) {
  test::JobBuilder job(Builder("job.sqlite"));
  job.Reference({1345, 0}, 42, -93).Implement({1345, 0}, "Boom", {{3, 0, 0, 0}});
  for (int i = 0; i < 8; ++i) job.Epoch({1345, i * 1000}, i, i);
  // The rates of the first record come back within its period.
  job.ActualRates({1345, 0}, 1).ActualRates({1345, 2000}, 2).ActualRates({1345, 4000}, 1);
  job.Finish();
  const CommandResult run = Run({"--base", "x", "job.sqlite"});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.err,
            "kestrin-export: job.sqlite: boom: No boom set made: at epoch 5 (week 1345, "
            "millisecond 4000) the job returns to its first rates, and a boom set cannot hold "
            "that\n");
  EXPECT_TRUE(HasSet("x_WIRE") && HasSet("x_POLY") && HasSet("x_POINT"));
  EXPECT_FALSE(Exists("x_BOOM.shp"));
}

// The boom set says besides what follows from it.
TEST_F(ExportFailure, JobThatIsNoneIsOneLineAlsoWhereEachKindFindsOutForItself) {
  std::ofstream(folder_ / "text.sqlite") << std::string(5000, 'x');
  const CommandResult run = Run({"--base", "x", "text.sqlite"});
  EXPECT_EQ(run.err,
            "kestrin-export: text.sqlite: Error creating statement: -26 (not a database)\n");
  EXPECT_EQ(run.code, 1);
}

TEST_F(ExportFailure, WhatOnlySomeKindsFailAtIsNamedForEachOfThem) {
  test::JobBuilder job(Builder("job.sqlite"));
  job.Reference({1345, 0}, 42, -93).Execute("DROP TABLE ImplChangeTable");
  for (int i = 0; i < 8; ++i) job.Epoch({1345, i * 1000}, i, i);
  job.Finish();
  const CommandResult run =
      Run({"--kind", "wire", "--kind", "boom", "--kind", "poly", "--base", "x", "job.sqlite"});
  EXPECT_EQ(run.code, 1);
  const std::string front = "kestrin-export: job.sqlite: ";
  const std::string text = "Error creating statement: -1 (it lacks a table or column of a job)\n";
  EXPECT_THAT(run.err, ::testing::StartsWith(front + "boom: " + text));
  EXPECT_THAT(run.err, ::testing::HasSubstr(front + "poly: " + text));
  EXPECT_THAT(run.err, ::testing::Not(::testing::HasSubstr("wire")));
}

TEST_F(ExportFailure, SecondJobOfTheSameTargetIsRefused) {
  Sample("a/job.sqlite", 20);
  Sample("b/job.sqlite", 40);
  for (const char* jobs : {"1", "4"}) {
    const CommandResult run =
        Run({"--kind", "wire", "--jobs", jobs, "a/job.sqlite", "b/job.sqlite"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, "TrevaskData/job/2025Jun3/job_2025Jun3_WIRE.shp: 20 epochs\n");
    EXPECT_EQ(run.err,
              "kestrin-export: b/job.sqlite: wire: its sets would take the names of "
              "those of a/job.sqlite\n");
  }
}

// Read through an index, the rows before the damage come out before the error.
TEST_F(ExportFailure, DamagedJobKeepsItsFirstRowsAndSaysSo) {
  const std::string job = Sample("job.sqlite", 3000);
  test::Database(job).Execute("CREATE INDEX byTime ON GpsDataTable (gpsWeek, gpsMsec)");
  test::DamageTablePage(job);

  const CommandResult run = Run({"--kind", "wire", "--base", "x", "job.sqlite"});
  EXPECT_EQ(run.code, 1);
  EXPECT_TRUE(HasSet("x_WIRE"));
  const int epochs = std::atoi(run.out.c_str() + std::string("x_WIRE.shp: ").size());
  EXPECT_GT(epochs, 100);
  EXPECT_LT(epochs, 3000);
  EXPECT_EQ(
      run.err,
      "kestrin-export: job.sqlite: wire: The job could not be read to its end: the set holds " +
          std::to_string(epochs) +
          " epochs of an unknown number, code 11 (the file is damaged or cut short)\n");
}

// Where only the index is damaged, the rows can still be counted.
TEST_F(ExportFailure, JobWithADamagedIndexSaysHowManyOfItsRowsAreInTheSet) {
  const std::string job = Sample("job.sqlite", 3000);
  test::Database(job).Execute("CREATE INDEX byTime ON GpsDataTable (gpsWeek, gpsMsec)");
  test::DamageIndexPage(job);
  for (const char* target : {"--out=out", "--base=x"}) {
    const CommandResult run = Run({"--kind", "wire", "--kind", "boom", target, "job.sqlite"});
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(std::regex_match(
        run.err, std::regex("kestrin-export: job.sqlite: The job could not be read to its end: "
                            "the set holds [0-9]+ of 3000 epochs, code 11 \\(the file is damaged "
                            "or cut short\\)\n")))
        << run.err;
  }
}

TEST_F(ExportFailure, JobWithoutAReferenceLocationHasNoBoomSetAndSaysWhy) {
  test::JobBuilder(Builder("job.sqlite")).Epoch({1345, 0}, 0, 0).Finish();
  const CommandResult run = Run({"--kind", "boom", "--base", "x", "job.sqlite"});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.err,
            "kestrin-export: job.sqlite: boom: No boom set made: the job has no reference "
            "location\n");
}

TEST_F(ExportFailure, OutThatCannotBeMadeIsNamed) {
  Sample("job.sqlite", 20);
  std::ofstream(folder_ / "file") << "no folder";
  for (const char* out : {"file", "file/deeper"}) {
    const CommandResult run = Run({"--kind", "wire", "--out", out, "job.sqlite"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err,
                ::testing::StartsWith("kestrin-export: job.sqlite: wire: Error writing: file"));
  }
  EXPECT_EQ(FileBytes(folder_ / "file"), "no folder");
}

}  // namespace
}  // namespace kestrin::exporter
