#include <gtest/gtest.h>

#include "export/boom/boomExport.h"
#include "tests/support/recordingHost.h"
#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"
#include "tools/sample/sampleJob.h"

namespace kestrin::sample {
namespace {

// Two rooms once gave one name to two types, and which of them a program had was chance.
TEST(OneProcess, MakesASampleJobAndExportsItsBoom) {
  const test::TempFolder folder;
  const std::string job = folder / "job.sqlite";
  MakeSampleJob(job, {.profile = "two-implements", .rows = 400});

  test::RecordingHost host;
  const auto files = base::NativeFileSystem();
  exports::ExportRun run{host, *files, {}};
  EXPECT_TRUE(boom::ExportBoomShape(folder / "job_BOOM", job, run).made);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_FALSE(test::ReadShapeSet(folder / "job_BOOM").records.empty());
}

}  // namespace
}  // namespace kestrin::sample
