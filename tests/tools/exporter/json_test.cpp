#include <regex>

#include "tests/support/jobBuilder.h"
#include "tests/support/shapeReader.h"
#include "tests/tools/exporter/exportFixture.h"
#include "tests/tools/exporter/shownSums.h"

namespace kestrin::exporter {
namespace {

using test::CommandResult;

class ExportJson : public test::ExportCommand {};

TEST_F(ExportJson, IsALinePerSetWithWhatItsTableComesTo) {
  Sample("job.sqlite");
  const CommandResult run =
      Run({"--json", "--kind", "all", "--kind", "net", "--base", "x", "job.sqlite"});
  const auto line = [](const std::string& kind, const std::string& suffix,
                       const std::string& figures = "") {
    return R"({"version":1,"type":"set","job":"job.sqlite","name":"job","kind":")" + kind +
           R"(","path":"x_)" + suffix + R"(.shp","epochs":600,"complete":true)" + figures + "}\n";
  };
  const auto net = test::ReadShapeSet(folder_ / "x_NET").rows[0];
  EXPECT_EQ(run.out,
            line("wire", "WIRE", R"(,"meters":)" + ShownSum(folder_ / "x_WIRE")) +
                line("boom", "BOOM") +
                line("poly", "POLY", R"(,"acres":)" + ShownSum(folder_ / "x_POLY")) +
                line("point", "POINT") +
                line("net", "NET",
                     R"(,"acres":)" + ShownSum(folder_ / "x_NET") + R"(,"gross_acres":)" +
                         JsonNumber(net[2]) + R"(,"overlap_percent":)" + JsonNumber(net[3])));
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
}

TEST_F(ExportJson, IsALinePerFailureBesideTheWordsOnStderr) {
  const CommandResult run = Run({"--json", "gone.sqlite"});
  EXPECT_EQ(run.out, R"({"version":1,"type":"failure","job":"gone.sqlite","name":"gone",)"
                     R"("kinds":["wire","boom","poly","point"],"message":"Error opening: -14",)"
                     R"("code":-14,"reason":"no such file"})"
                     "\n");
  EXPECT_EQ(run.err, "kestrin-export: gone.sqlite: Error opening: -14 (no such file)\n");
  EXPECT_EQ(run.code, 1);
}

TEST_F(ExportJson, NamesFoldersThatHaveNoJob) {
  std::filesystem::create_directory(folder_.Path() / "empty");
  const CommandResult run = Run({"--json", "--recursive", "empty"});
  EXPECT_EQ(run.out, R"({"version":1,"type":"failure","folder":"empty",)"
                     R"("message":"no job file (*.sqlite) in it or below"})"
                     "\n");
  EXPECT_EQ(run.code, 1);
}

TEST_F(ExportJson, SaysOfASetThatTheJobEndedAmidItsRows) {
  const std::string job = Sample("job.sqlite", 3000);
  test::Database(job).Execute("CREATE INDEX byTime ON GpsDataTable (gpsWeek, gpsMsec)");
  test::DamageIndexPage(job);
  const CommandResult run = Run({"--json", "--kind", "wire", "--base", "x", "job.sqlite"});
  EXPECT_THAT(run.out, ::testing::HasSubstr(R"("complete":false,"meters":)"));
  EXPECT_THAT(run.out, ::testing::HasSubstr(R"("kinds":["wire"],"message":"The job could not)"));
  EXPECT_THAT(run.out, ::testing::HasSubstr(R"("code":11,"reason":"the file is damaged)"));
  EXPECT_EQ(run.code, 1);
}

TEST_F(ExportJson, TellsTheSetsOfAJobBeforeItsFailures) {
  // Without its targets the boom set has something to say, and there is one all the same.
  test::Database(Sample("job.sqlite", 20)).Execute("DROP TABLE AsAppliedDesRateChangeTable");
  const CommandResult run = Run({"--json", "--base", "x", "job.sqlite"});
  const std::regex order(R"((.*"type":"set".*\n){4}(.*"type":"failure".*\n)+)");
  EXPECT_TRUE(std::regex_match(run.out, order)) << run.out;
}

TEST_F(ExportJson, QuietLeavesFailuresAlone) {
  Sample("job.sqlite", 20);
  const CommandResult run =
      Run({"--json", "--quiet", "--kind", "wire", "job.sqlite", "gone.sqlite"});
  EXPECT_THAT(run.out, ::testing::StartsWith(R"({"version":1,"type":"failure")"));
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 1);
  EXPECT_TRUE(HasSet("TrevaskData/job/2025Jun3/job_2025Jun3_WIRE"));
}

}  // namespace
}  // namespace kestrin::exporter
