#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/tempFolder.h"
#include "tests/tools/exporter/command.h"
#include "tools/sample/sampleJob.h"

namespace kestrin::sample {
namespace {

namespace fs = std::filesystem;

TEST(SampleCommand, ListsEveryProfileOnALine) {
  const test::TempFolder folder;
  std::string names;
  for (const SampleProfile& profile : SampleProfiles()) names += std::string(profile.name) + "\n";
  const auto run = test::RunCommand({KESTRIN_SAMPLE, "--list-profiles"}, folder.Path().string());
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.out, names);
}

TEST(SampleCommand, MakesAJobAndLeavesOneThatIsThere) {
  const test::TempFolder folder;
  const std::string place = folder.Path().string();
  EXPECT_EQ(test::RunCommand({KESTRIN_SAMPLE, "--rows", "20", "job.sqlite"}, place).code, 0);
  const auto made = fs::last_write_time(folder.Path() / "job.sqlite");
  const auto again = test::RunCommand({KESTRIN_SAMPLE, "--rows", "30", "job.sqlite"}, place);
  EXPECT_EQ(again.code, 1);
  EXPECT_TRUE(again.err.starts_with("kestrin-sample: job.sqlite: ")) << again.err;
  EXPECT_EQ(fs::last_write_time(folder.Path() / "job.sqlite"), made);
}

TEST(SampleCommand, RefusesAProfileThatIsNone) {
  const test::TempFolder folder;
  const auto run =
      test::RunCommand({KESTRIN_SAMPLE, "--profile", "none", "job.sqlite"}, folder.Path().string());
  EXPECT_EQ(run.code, 2);
  EXPECT_FALSE(fs::exists(folder.Path() / "job.sqlite"));
}

}  // namespace
}  // namespace kestrin::sample
