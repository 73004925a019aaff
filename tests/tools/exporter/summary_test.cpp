#include <fstream>

#include "tests/support/jobBuilder.h"
#include "tests/tools/exporter/exportFixture.h"
#include "tests/tools/exporter/shownSums.h"

namespace kestrin::exporter {
namespace {

using test::CommandResult;
using ::testing::HasSubstr;

class ExportSummary : public test::ExportCommand {};

TEST_F(ExportSummary, SaysInALineWhatIsToBeKnownOfAJobAndWritesNothing) {
  Sample("North 40.sqlite");
  const CommandResult run = Run({"--summary", "North 40.sqlite"});
  EXPECT_EQ(run.out,
            "North 40.sqlite: 2025Jun3, 600 epochs, 300.05 meters, 0.9 acres, format 3.2.8-1, "
            "products Corn 105d\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(FilesBelow("."), 1);
  EXPECT_EQ(Run({"--summary", "--quiet", "North 40.sqlite"}).out, "");
}

class SummaryFigures : public ExportSummary, public ::testing::WithParamInterface<const char*> {};

TEST_P(SummaryFigures, AreThoseOfTheSets) {
  Sample("job.sqlite", 4000, GetParam());
  ASSERT_EQ(Run({"--quiet", "--kind", "wire", "--base", "x", "job.sqlite"}).code, 0);
  Run({"--quiet", "--kind", "poly", "--base", "x", "job.sqlite"});
  const std::string out = Run({"--summary", "--json", "job.sqlite"}).out;
  EXPECT_THAT(out, HasSubstr(R"("epochs":4000,"complete":true,"meters":)" +
                             ShownSum(folder_ / "x_WIRE") + ","));
  if (HasSet("x_POLY")) {
    EXPECT_THAT(out, HasSubstr(R"("acres":)" + ShownSum(folder_ / "x_POLY") + ","));
  } else {
    EXPECT_THAT(out, ::testing::Not(HasSubstr("acres")));
  }
}

INSTANTIATE_TEST_SUITE_P(ExportSummary, SummaryFigures,
                         ::testing::Values("planter", "combine", "crossing", "spiral", "jitter",
                                           "two-implements", "no-implement", "dropouts"));

TEST_F(ExportSummary, NamesTheProductsInForceAtSomeRowOnceAndBothDays) {
  test::JobBuilder(folder_ / "job.sqlite")
      .Reference({1345, 0}, 42, -93)
      .Products({1345, 0}, "Never there")
      .Products({1345, 500}, " Corn, late ", "Urea")
      .Products({1345, 90000000}, "Urea", "", "Soy")
      .Products({1346, 0}, "Too late")
      .Version({1345, 0}, " 3.2.9-4 ")
      .Epoch({1345, 1000}, 0, 0)
      .Epoch({1345, 90001000}, 3, 4)
      .Finish();
  EXPECT_EQ(Run({"--summary", "job.sqlite"}).out,
            "job.sqlite: 2025Jun1 to 2025Jun2, 2 epochs, 5 meters, format 3.2.9-4, products "
            "Corn, late, Urea, Soy\n");
  EXPECT_EQ(Run({"--summary", "--json", "job.sqlite"}).out,
            R"({"version":1,"type":"summary","job":"job.sqlite","name":"job",)"
            R"("first":"2025-06-01","newest":"2025-06-02","epochs":2,"complete":true,)"
            R"("meters":5.0,"format":"3.2.9-4","products":["Corn, late","Urea","Soy"]})"
            "\n");
}

TEST_F(ExportSummary, AJobWithoutRowsHasNoDaysAndIsNoFailure) {
  test::JobBuilder(folder_ / "job.sqlite").Reference({1345, 0}, 42, -93).Finish();
  const CommandResult run = Run({"--summary", "job.sqlite"});
  EXPECT_EQ(run.out, "job.sqlite: 0 epochs\n");
  EXPECT_EQ(run.code, 0);
}

TEST_F(ExportSummary, WhatCannotBeReadIsNamedOnce) {
  Sample("there.sqlite", 20);
  std::ofstream(folder_ / "text.sqlite") << std::string(5000, 'x');
  const CommandResult run = Run({"--summary", "gone.sqlite", "text.sqlite", "there.sqlite"});
  EXPECT_EQ(run.err,
            "kestrin-export: gone.sqlite: Error opening: -14 (no such file)\n"
            "kestrin-export: text.sqlite: Error creating statement: -26 (not a database)\n");
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 1);
  EXPECT_EQ(run.code, 1);
}

TEST_F(ExportSummary, SaysHowManyRowsOfADamagedJobItIsOf) {
  const std::string job = Sample("job.sqlite", 3000);
  test::Database(job).Execute("CREATE INDEX byTime ON GpsDataTable (gpsWeek, gpsMsec)");
  test::DamageTablePage(job);
  const CommandResult run = Run({"--summary", "--json", "job.sqlite"});
  EXPECT_THAT(run.out, HasSubstr(R"("complete":false)"));
  EXPECT_THAT(run.err, HasSubstr("The job could not be read to its end: "));
  EXPECT_THAT(run.err, HasSubstr(" epochs read, code 11 (the file is damaged or cut short)\n"));
  EXPECT_EQ(run.code, 1);
}

TEST_F(ExportSummary, JobsOfOneNameAreTwoJobs) {
  Sample("a/job.sqlite", 20);
  Sample("b/job.sqlite", 20);
  const CommandResult run = Run({"--summary", "--jobs", "2", "a", "b"});
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 2);
  EXPECT_EQ(run.code, 0);
}

}  // namespace
}  // namespace kestrin::exporter
