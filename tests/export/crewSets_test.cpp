#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "base/utf8Path.h"
#include "export/exportKinds.h"
#include "tests/support/recordingHost.h"
#include "tests/support/tempFolder.h"
#include "tools/sample/sampleJob.h"

/// Sets are the same to the byte with any number of threads, and end the same.

namespace kestrin::exports {
namespace {

constexpr unsigned kThreads[] = {2, 5};

/// What a run leaves.
struct Left {
  std::map<std::string, std::string> files;
  std::vector<std::string> messages;
  std::int64_t rows = 0;
  bool cancelled = false;

  friend bool operator==(const Left&, const Left&) = default;
};

Left Exported(const ExportKind& kind, const std::string& job, base::Crew* crew,
              std::int64_t cancelAt = 0) {
  const test::TempFolder folder;
  const auto files = base::NativeFileSystem();
  test::RecordingHost host;
  host.cancelAt = cancelAt;
  ExportRun run{host, *files, {{2006, 7, 9}, false}, false, crew};
  Left left;
  try {
    kind.procedure(folder / "set", job, run);
  } catch (const base::RunCancelled&) {
    left.cancelled = true;
  }
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    const std::string name = base::Utf8Of(entry.path().filename());
    left.files[name] = test::FileBytes(folder / name);
  }
  left.messages = host.messages;
  left.rows = host.rows;
  return left;
}

class CrewSets : public testing::TestWithParam<std::string_view> {
 protected:
  CrewSets() { sample::MakeSampleJob(job_, {std::string(GetParam()), 5000, 1}); }

  test::TempFolder folder_;
  std::string job_ = folder_ / "job.sqlite";
};

TEST_P(CrewSets, AreTheSameWithAnyNumberOfThreads) {
  for (const ExportKind& kind : kExportKinds) {
    const Left alone = Exported(kind, job_, nullptr);
    for (const unsigned threads : kThreads) {
      base::Crew crew(threads);
      EXPECT_EQ(Exported(kind, job_, &crew), alone) << kind.name << " by " << threads;
    }
  }
}

TEST_P(CrewSets, CancelledRunLeavesNoFile) {
  base::Crew crew(3);
  for (const ExportKind& kind : kExportKinds) {
    const Left left = Exported(kind, job_, &crew, 4000);
    EXPECT_TRUE(left.cancelled);
    EXPECT_TRUE(left.files.empty()) << kind.name;
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, CrewSets, testing::Values("sprayer", "planter", "jitter"));

}  // namespace
}  // namespace kestrin::exports
