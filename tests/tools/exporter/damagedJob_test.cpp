#include "tests/support/jobBuilder.h"
#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using DamagedJobs = test::ExportCommand;

// The newest epoch dates the set, so such a job ends before there is a name to write to.
TEST_F(DamagedJobs, OneWithoutABaseIsToldWithTheCodeItsRowsEndedWith) {
  const std::string path = Sample("job.sqlite", 3000);
  test::DamageTablePage(path);
  const test::CommandResult run = Run({"--kind", "wire", "--out", ".", "job.sqlite"});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.err,
            "kestrin-export: job.sqlite: wire: The job could not be read to its end: no set made, "
            "code 11 (the file is damaged or cut short)\n");
}

}  // namespace
}  // namespace kestrin::exporter
