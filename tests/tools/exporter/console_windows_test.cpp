#include <windows.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "base/nativePath.h"
#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using test::CommandResult;
using ::testing::HasSubstr;

class ExportOnWindows : public test::ExportCommand {
 protected:
  /// Starts an export that takes its time and waits for its first file.
  std::unique_ptr<test::Command> StartLong() {
    const std::string job = Sample("job.sqlite", 400000);
    auto command = std::make_unique<test::Command>(
        std::vector<std::string>{KESTRIN_EXPORT, "--kind", "wire", "--base", "sets\\x", job},
        folder_.Path().string());
    while (!Exists("sets") && !command->Ended()) {
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    // Its files have no names by which to wait for them, and soon follow their folder.
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    EXPECT_FALSE(command->Ended()) << "done before it could be stopped";
    return command;
  }
};

TEST_F(ExportOnWindows, BackslashesLeadToJobAndSets) {
  Sample("fields/North.40 acres.sqlite", 20);
  const CommandResult run = test::RunCommand(
      {KESTRIN_EXPORT, "--kind", "wire", "fields\\North.40 acres.sqlite"}, folder_.Path().string());
  EXPECT_EQ(run.out,
            "TrevaskData\\North_40 acres\\2025Jun3\\North_40 acres_2025Jun3_WIRE.shp: 20 epochs\n");
  EXPECT_EQ(run.err, "");
  EXPECT_TRUE(HasSet("TrevaskData/North_40 acres/2025Jun3/North_40 acres_2025Jun3_WIRE"));
}

TEST_F(ExportOnWindows, ASetOpenInAGisIsNamedAndStays) {
  Sample("job.sqlite", 20);
  ASSERT_EQ(Run({"--kind", "wire", "--base", "x", "job.sqlite"}).code, 0);
  const std::string before = test::FileBytes(folder_ / "x_WIRE.shp");
  const HANDLE gis =
      CreateFileW(std::filesystem::path(folder_ / "x_WIRE.dbf").c_str(), GENERIC_READ,
                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  const CommandResult run = Run({"--kind", "wire", "--base", "x", "job.sqlite"});
  CloseHandle(gis);
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("x_WIRE.dbf"));
  EXPECT_TRUE(HasSet("x_WIRE"));
  EXPECT_TRUE(test::FileBytes(folder_ / "x_WIRE.shp") == before);
}

TEST_F(ExportOnWindows, JobAndSetsMayLieOnTheNetwork) {
  const char* share = std::getenv("KESTRIN_SHARE");
  if (share == nullptr) GTEST_SKIP() << "no share here";
  const std::string job = std::string(share) + R"(\North.sqlite)";
  const std::string sets = std::string(share) + R"(\sets)";
  ASSERT_TRUE(CopyFileW(base::NativePath(Sample("North.sqlite", 20))->c_str(),
                        base::NativePath(job)->c_str(), FALSE));
  const CommandResult run = Run({"--kind", "wire", "--out", sets, job});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
  const std::string shapes = sets + R"(\North\2025Jun3\North_2025Jun3_WIRE.shp)";
  EXPECT_NE(GetFileAttributesW(base::NativePath(shapes)->c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(ExportOnWindows, PatternsAreExpanded) {
  Sample("a.sqlite", 20);
  Sample("Süd.sqlite", 20);
  const CommandResult run = Run({"--kind", "wire", "*.sqlite"});
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, HasSubstr("a_2025Jun3_WIRE.shp: 20 epochs\n"));
  EXPECT_THAT(run.out, HasSubstr("Süd_2025Jun3_WIRE.shp: 20 epochs\n"));
}

TEST_F(ExportOnWindows, NamesThatDifferInCaseAreOneTarget) {
  Sample("one/North.sqlite", 20);
  Sample("two/NORTH.sqlite", 20);
  const CommandResult run = Run({"--kind", "wire", "one/North.sqlite", "two/NORTH.sqlite"});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("its sets would take the names of those of one/North.sqlite"));
}

TEST_F(ExportOnWindows, StoppedByCtrlCLeavesNothingHalfMade) {
  if (GetConsoleCP() == 0) GTEST_SKIP() << "no console here";
  const auto command = StartLong();
  command->Send(SIGINT);
  const CommandResult run = command->Wait();
  EXPECT_EQ(run.code, 128 + SIGINT);
  EXPECT_EQ(run.err, "kestrin-export: stopped\n");
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(FilesBelow("sets"), 0);
}

TEST_F(ExportOnWindows, KilledLeavesNothing) {
  const auto command = StartLong();
  command->Send(9);
  command->Wait();
  EXPECT_EQ(FilesBelow("sets"), 0);
}

}  // namespace
}  // namespace kestrin::exporter
