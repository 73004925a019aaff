#include <gtest/gtest.h>

#include <cstdio>

#include "base/utf8Path.h"
#include "export/coverage/coverageExport.h"
#include "tests/export/coverage/setJudge.h"
#include "tests/support/manyJobs.h"
#include "tests/support/recordingHost.h"
#include "tests/support/tempFolder.h"
#include "tools/sample/sampleJob.h"

namespace kestrin::coverage {
namespace {

/// Exports a job's coverage and judges it.
test::Verdict JudgeJob(const std::string& name, const std::string& jobPath,
                       test::Asked asked = test::Asked::kChangedGround) {
  const test::TempFolder folder;
  const std::string setPath = folder / "job_POLY";
  test::RecordingHost host;
  const auto files = base::NativeFileSystem();
  const shapefile::SetOptions options{{2006, 7, 9}, false};
  exports::ExportRun run{host, *files, options};
  ExportPolyShape(setPath, jobPath, run);
  return test::JudgeSet(name, jobPath, setPath, asked);
}

/// A ring that crosses nothing is not asked for its ground: where a wide implement swings
/// back beside its own way its outline can cross nothing and yet not be that of the ground.
void ExpectFitAndTrue(const test::Verdict& verdict) {
  EXPECT_TRUE(verdict.faults.empty()) << verdict.Text();
  EXPECT_LE(verdict.changed.wrong, test::kWrongShare * verdict.all.covered);
}

class SampleJobs : public testing::TestWithParam<sample::SampleProfile> {};

TEST_P(SampleJobs, RingsAreValidAndTheGroundCovered) {
  for (std::uint64_t seed = 1; seed <= 3; ++seed) {
    const test::TempFolder folder;
    const std::string path = folder / "job.sqlite";
    sample::MakeSampleJob(path, {std::string(GetParam().name), 1200, seed});
    ExpectFitAndTrue(JudgeJob("seed " + std::to_string(seed), path));
  }
}

INSTANTIATE_TEST_SUITE_P(Profiles, SampleJobs, testing::ValuesIn(sample::SampleProfiles()),
                         test::NameOfProfile);

TEST(RecordedJobs, RingsAreValidAndTheGroundCovered) {
  const std::vector<std::string> jobs = test::RecordedJobs();
  if (jobs.empty()) GTEST_SKIP() << "KESTRIN_JOBS names no folder of recorded jobs";
  for (const std::string& job : jobs) {
    const std::string name = base::Utf8Of(base::PathOf(job).stem());
    const test::Verdict verdict = JudgeJob(name, job, test::Asked::kAllGround);
    std::printf("%s: %d rings, %zu faults, %.3f %% of the ground wrong\n", name.c_str(),
                verdict.rings, verdict.faults.size(), 100 * verdict.all.Share());
    ExpectFitAndTrue(verdict);
    EXPECT_LE(verdict.all.Share(), test::kWrongShare) << name;
  }
}

}  // namespace
}  // namespace kestrin::coverage
