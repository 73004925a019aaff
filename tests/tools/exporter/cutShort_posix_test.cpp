#include <chrono>
#include <csignal>
#include <thread>

#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using test::CommandResult;
using ::testing::HasSubstr;

class ExportCutShort : public test::ExportCommand {
 protected:
  /// Runs with a shell's setting before it, such as a limit.
  CommandResult RunUnder(const std::string& setting, std::vector<std::string> arguments) const {
    const std::vector<std::string> shell{"sh", "-c", setting + "; exec \"$@\"", "sh",
                                         KESTRIN_EXPORT};
    arguments.insert(arguments.begin(), shell.begin(), shell.end());
    return test::RunCommand(arguments, folder_.Path().string());
  }
};

TEST_F(ExportCutShort, FileSizeLimitLeavesNoSetAndIsNamed) {
  Sample("job.sqlite", 5000);
  const CommandResult run =
      RunUnder("ulimit -f 16", {"--kind", "wire", "--base", "sets/x", "job.sqlite"});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("File too large"));
  EXPECT_EQ(FilesBelow("sets"), 0);
}

TEST_F(ExportCutShort, ResultsThatDoNotArriveAreAFailure) {
  Sample("job.sqlite", 20);
  const CommandResult run =
      RunUnder("exec >/dev/full", {"--kind", "wire", "--base", "x", "job.sqlite"});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.err, "kestrin-export: the results could not be written to stdout\n");
  EXPECT_TRUE(HasSet("x_WIRE"));
}

TEST_F(ExportCutShort, NetStoppedAmidItsGeometryLeavesNothing) {
  const std::string job = Sample("job.sqlite", 400000);
  test::Command command({KESTRIN_EXPORT, "--kind", "net", "--base", "sets/x", job},
                        folder_.Path().string());
  // The rows take a part of this, the ground several times as much.
  std::this_thread::sleep_for(std::chrono::milliseconds(700));
  ASSERT_FALSE(command.Ended()) << "done before it could be stopped";
  command.Send(SIGTERM);
  const CommandResult run = command.Wait();
  EXPECT_EQ(run.code, 128 + SIGTERM);
  EXPECT_EQ(run.err, "kestrin-export: stopped\n");
  EXPECT_EQ(FilesBelow("sets"), 0);
}

// As shells start what they run in the background.
TEST_F(ExportCutShort, CtrlCThatWasIgnoredBeforeStaysSo) {
  const std::string job = Sample("job.sqlite", 400000);
  test::Command command({"sh", "-c", "trap '' INT; exec \"$0\" \"$@\"", KESTRIN_EXPORT, "--kind",
                         "wire", "--base", "sets/x", job},
                        folder_.Path().string());
  while (!Exists("sets") && !command.Ended()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  ASSERT_FALSE(command.Ended()) << "done before it could be stopped";
  command.Send(SIGINT);
  EXPECT_EQ(command.Wait().code, 0);
  EXPECT_TRUE(HasSet("sets/x_WIRE"));
}

class StoppedExport : public ExportCutShort, public ::testing::WithParamInterface<int> {};

TEST_P(StoppedExport, LeavesNothingHalfMade) {
  const std::string job = Sample("job.sqlite", 400000);
  test::Command command({KESTRIN_EXPORT, "--kind", "wire", "--base", "sets/x", job},
                        folder_.Path().string());
  while (!Exists("sets") && !command.Ended()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  // Its files have no names by which to wait for them, and soon follow their folder.
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
  ASSERT_FALSE(command.Ended()) << "done before it could be stopped";
  command.Send(GetParam());
  const CommandResult run = command.Wait();
  EXPECT_EQ(run.code, 128 + GetParam());
  EXPECT_EQ(run.err, "kestrin-export: stopped\n");
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(FilesBelow("sets"), 0);
}

INSTANTIATE_TEST_SUITE_P(ExportCutShort, StoppedExport, ::testing::Values(SIGINT, SIGTERM));

}  // namespace
}  // namespace kestrin::exporter
