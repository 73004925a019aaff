#include "tests/support/jobBuilder.h"
#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using test::ExportCommand;
using ::testing::HasSubstr;

// An hour of zone counts as a minute: what was recorded 30 seconds before midnight
// is of the next day one zone to the east.
TEST_F(ExportCommand, DateFollowsTheZoneWithMinutesTakenForSeconds) {
  test::JobBuilder(folder_ / "late.sqlite")
      .Reference({350, 0}, 42, -93.6)
      .Epoch({350, 86370000}, 0, 0)
      .Epoch({350, 86370000}, 1, 1)
      .Finish();
  EXPECT_THAT(Run({"--kind", "wire", "late.sqlite"}, {"TZ=UTC"}).out, HasSubstr("2006May7"));
  EXPECT_THAT(Run({"--kind", "wire", "late.sqlite"}, {"TZ=EAST-1"}).out, HasSubstr("2006May8"));
}

}  // namespace
}  // namespace kestrin::exporter
