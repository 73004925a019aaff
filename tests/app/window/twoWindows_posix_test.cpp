#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

#include "tests/support/tempFolder.h"
#include "tools/sample/sampleJob.h"

namespace kestrin::window {
namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, std::string>;

Files FilesBelow(const fs::path& folder) {
  Files files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    files[entry.path().lexically_relative(folder)] = test::FileBytes(entry.path());
  }
  return files;
}

/// Each selects the job, looks at its previews and presses CREATE ALL.
TEST(TwoWindows, OnOneDataFolderLeaveWhatOneLeaves) {
  const test::TempFolder one, two;
  const std::string job = one / "job.sqlite";
  sample::MakeSampleJob(job, {.profile = "planter", .rows = 800});
  const std::string session = std::string("'") + KESTRIN_SESSION + "' '" + job + "' '";
  const std::string quiet = "' >/dev/null 2>&1";
  ASSERT_EQ(std::system((session + one.Path().string() + quiet).c_str()), 0);
  const std::string window = session + two.Path().string() + quiet;
  for (int run = 0; run < 2; ++run) {
    // A window that looks while the other one makes a set anew may miss that, and says so by 1.
    const std::string both = window + " & other=$!; " + window + "; [ $? -le 1 ] || exit 2; " +
                             "wait $other; [ $? -le 1 ] || exit 2";
    EXPECT_EQ(std::system(both.c_str()), 0);
    EXPECT_TRUE(FilesBelow(two.Path() / "TrevaskData") == FilesBelow(one.Path() / "TrevaskData"));
  }
}

}  // namespace
}  // namespace kestrin::window
