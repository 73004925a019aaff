#include <regex>

#include "export/exportKinds.h"
#include "tests/support/database.h"
#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using test::CommandResult;
using test::ExportCommand;
using test::FileBytes;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST_F(ExportCommand, PrintsALinePerSetInTheOrderOfTheKinds) {
  Sample("job.sqlite");
  const CommandResult run = Run({"--base", "sets/job", "job.sqlite"});
  EXPECT_EQ(run.out,
            "sets/job_WIRE.shp: 600 epochs\n"
            "sets/job_BOOM.shp: 600 epochs\n"
            "sets/job_POLY.shp: 600 epochs\n"
            "sets/job_POINT.shp: 600 epochs\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
  for (const char* suffix : {"_WIRE", "_BOOM", "_POLY", "_POINT"}) {
    EXPECT_TRUE(HasSet(std::string("sets/job") + suffix)) << suffix;
  }
  EXPECT_EQ(FilesBelow("sets"), 12);
}

TEST_F(ExportCommand, MakesOnlyTheKindsAskedForEachOnce) {
  Sample("job.sqlite");
  const CommandResult run =
      Run({"--kind", "poly", "--kind", "wire", "--kind", "poly", "--base", "x", "job.sqlite"});
  EXPECT_EQ(run.out, "x_WIRE.shp: 600 epochs\nx_POLY.shp: 600 epochs\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
}

TEST_F(ExportCommand, AllMeansEveryKind) {
  Sample("job.sqlite", 50);
  EXPECT_EQ(Run({"--kind", "all", "--kind", "wire", "--base", "x", "job.sqlite"}).out,
            Run({"--base", "x", "job.sqlite"}).out);
}

TEST_F(ExportCommand, NetIsMadeWhenNamedBehindTheOthersAndSaysItsFiguresInWords) {
  Sample("job.sqlite");
  const CommandResult run = Run({"--kind", "net", "--kind", "wire", "--base", "x", "job.sqlite"});
  EXPECT_TRUE(
      std::regex_match(run.out, std::regex("x_WIRE.shp: 600 epochs\nx_NET.shp: 600 epochs, net "
                                           "[0-9]+\\.[0-9] acres \\([0-9]+\\.[0-9] ha\\), swept "
                                           "[0-9]+\\.[0-9], overlap [0-9]+\\.[0-9] %\n")))
      << run.out;
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
  EXPECT_TRUE(HasSet("x_NET"));
  EXPECT_EQ(FilesBelow("."), 7);
}

TEST_F(ExportCommand, HelpSaysWhatEachKindIsThatIsMadeByNameOnly) {
  const std::string help = Run({"--help"}).out;
  EXPECT_FALSE(exports::kNamedKinds.empty());
  for (const exports::ExportKind& kind : exports::kNamedKinds) {
    EXPECT_THAT(help, HasSubstr(std::string(kind.name).append(" is ").append(kind.purpose)));
    EXPECT_THAT(help, HasSubstr(std::string(",").append(kind.name).append(",")));
  }
}

TEST_F(ExportCommand, AllSectionsMakesAnotherNet) {
  Sample("job.sqlite");
  const CommandResult some = Run({"--kind", "net", "--base", "x", "job.sqlite"});
  const CommandResult all = Run({"--kind", "net", "--all-sections", "--base", "x", "job.sqlite"});
  EXPECT_EQ(all.code, 0);
  EXPECT_NE(all.out, some.out);
}

TEST_F(ExportCommand, NamesFoldersAndSetsAfterJobAndDate) {
  Sample("fields/North.40 acres.sqlite");
  const CommandResult run = Run({"--kind", "wire", "fields/North.40 acres.sqlite"});
  EXPECT_EQ(run.out,
            "TrevaskData/North_40 acres/2025Jun3/North_40 acres_2025Jun3_WIRE.shp: 600 epochs\n");
  EXPECT_EQ(run.err, "");
  EXPECT_TRUE(HasSet("TrevaskData/North_40 acres/2025Jun3/North_40 acres_2025Jun3_WIRE"));
}

TEST_F(ExportCommand, OutTakesThePlaceOfTheDataFolder) {
  Sample("job.sqlite", 20);
  for (const char* out : {"deep/er", "deep/er/"}) {
    EXPECT_EQ(Run({"--kind", "wire", "--out", out, "job.sqlite"}).out,
              "deep/er/job/2025Jun3/job_2025Jun3_WIRE.shp: 20 epochs\n");
  }
  EXPECT_FALSE(Exists("TrevaskData"));
}

TEST_F(ExportCommand, BlanksAndLettersBeyondAsciiInPathsAreKept) {
  Sample("Höhe 2/Grüner Schlag 麦.sqlite", 30, "unicode");
  const CommandResult run =
      Run({"--kind", "wire", "--out", "Ausgabe ä", "Höhe 2/Grüner Schlag 麦.sqlite"});
  EXPECT_EQ(run.out,
            "Ausgabe ä/Grüner Schlag 麦/2025Jun3/Grüner Schlag 麦_2025Jun3_WIRE.shp: 30 epochs\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
}

TEST_F(ExportCommand, QuietPrintsNothingOnSuccess) {
  Sample("job.sqlite", 20);
  const CommandResult run = Run({"--quiet", "--base", "x", "job.sqlite"});
  EXPECT_EQ(run.out + run.err, "");
  EXPECT_EQ(run.code, 0);
  EXPECT_TRUE(HasSet("x_POINT"));
}

TEST_F(ExportCommand, ProjectionFilesComeOnlyWhenAskedFor) {
  Sample("job.sqlite", 20);
  Run({"--kind", "wire", "--base", "without", "job.sqlite"});
  EXPECT_FALSE(Exists("without_WIRE.prj") || Exists("without_WIRE.cpg"));
  EXPECT_EQ(Run({"--kind", "wire", "--prj", "--base", "with", "job.sqlite"}).code, 0);
  EXPECT_THAT(FileBytes(folder_ / "with_WIRE.prj"), HasSubstr("North_American_1983"));
  EXPECT_THAT(FileBytes(folder_ / "with_WIRE.cpg"), StartsWith("UTF-8"));
}

TEST_F(ExportCommand, SeveralJobsAtOnceMakeTheSameSets) {
  std::vector<std::string> one{"--threads", "1", "--out", "one"};
  std::vector<std::string> four{"--jobs", "4", "--threads", "3", "--out", "four"};
  for (const char* name : {"a", "b", "c", "d", "e"}) {
    Sample(name + std::string(".sqlite"), 900);
    one.push_back(name + std::string(".sqlite"));
    four.push_back(one.back());
  }
  EXPECT_EQ(Run(one).code, 0);
  const CommandResult run = Run(four);
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 20);
  EXPECT_EQ(FilesBelow("four"), 60);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_ / "one")) {
    if (!entry.is_regular_file()) continue;
    const auto other = folder_.Path() / "four" / entry.path().lexically_relative(folder_ / "one");
    EXPECT_TRUE(FileBytes(base::Utf8Of(entry.path())) == FileBytes(base::Utf8Of(other))) << other;
  }
}

TEST_F(ExportCommand, KindsMadeSideBySideAreToldInTheirOrder) {
  Sample("a.sqlite", 3000);
  // Without its targets the boom set has something to say.
  test::Database(Sample("b.sqlite", 3000)).Execute("DROP TABLE AsAppliedDesRateChangeTable");
  const CommandResult alone = Run({"--threads", "1", "--out", "x", "a.sqlite", "b.sqlite"});
  const CommandResult together = Run({"--threads", "8", "--out", "x", "a.sqlite", "b.sqlite"});
  EXPECT_THAT(alone.out, HasSubstr("_WIRE.shp"));
  EXPECT_THAT(alone.err, HasSubstr("b.sqlite: boom: "));
  EXPECT_EQ(together.out, alone.out);
  EXPECT_EQ(together.err, alone.err);
  EXPECT_EQ(together.code, alone.code);
}

TEST_F(ExportCommand, LeavesJobAndItsFolderAsTheyAre) {
  const std::string job = Sample("jobs/job.sqlite");
  const std::string bytes = FileBytes(job);
  const auto written = std::filesystem::last_write_time(job);
  EXPECT_EQ(Run({"--base", "x", "jobs/job.sqlite"}).code, 0);
  EXPECT_TRUE(FileBytes(job) == bytes);
  EXPECT_EQ(std::filesystem::last_write_time(job), written);
  EXPECT_EQ(FilesBelow("jobs"), 1);
}

TEST_F(ExportCommand, HelpAndVersionAreNoFailure) {
  for (const char* flag : {"--help", "--version"}) {
    const CommandResult run = Run({flag});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, HasSubstr(flag == std::string("--help") ? "Usage:" : "kestrin-export "));
  }
}

class WrongUsage : public ExportCommand,
                   public ::testing::WithParamInterface<std::vector<std::string>> {};

TEST_P(WrongUsage, EndsWithTwoAndTouchesNothing) {
  const CommandResult run = Run(GetParam());
  EXPECT_EQ(run.code, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err, "");
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

INSTANTIATE_TEST_SUITE_P(
    ExportCommand, WrongUsage,
    ::testing::Values(std::vector<std::string>{},
                      std::vector<std::string>{"--kind", "shape", "a.sqlite"},
                      std::vector<std::string>{"--kind"},
                      std::vector<std::string>{"--jobs", "0", "a.sqlite"},
                      std::vector<std::string>{"--jobs", "many", "a.sqlite"},
                      std::vector<std::string>{"--threads", "0", "a.sqlite"},
                      std::vector<std::string>{"--base", "x", "a.sqlite", "b.sqlite"},
                      std::vector<std::string>{"--base", "x", "--out", "y", "a.sqlite"},
                      std::vector<std::string>{"--base", "", "a.sqlite"},
                      std::vector<std::string>{"--out", "", "a.sqlite"},
                      std::vector<std::string>{"--all-sections", "a.sqlite"},
                      std::vector<std::string>{"-"}, std::vector<std::string>{"-/", "a.sqlite"},
                      std::vector<std::string>{"--out", "-", "a.sqlite"},
                      std::vector<std::string>{"--base=-", "a.sqlite"},
                      std::vector<std::string>{"--base", "x", "."},
                      std::vector<std::string>{"--summary", "--base", "x", "a.sqlite"},
                      std::vector<std::string>{"--summary", "--out", "x", "a.sqlite"},
                      std::vector<std::string>{"--summary", "--kind", "all", "a.sqlite"},
                      std::vector<std::string>{"--summary", "--prj", "a.sqlite"},
                      std::vector<std::string>{"--verbose", "a.sqlite"}));

TEST_F(ExportCommand, ADashIsRefusedAndSaysHowAFileOfThatNameIsMeant) {
  EXPECT_EQ(Run({"--out", "-", "a.sqlite"}).err,
            "--out: is \"-\", but neither jobs nor sets come by a stream; a file or folder of that "
            "name is \"./-\"\nRun with --help for more information.\n");
}

}  // namespace
}  // namespace kestrin::exporter
