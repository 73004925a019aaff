#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "export/exportKinds.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/recordingHost.h"
#include "tests/support/tempFolder.h"

namespace kestrin::exports {
namespace {

constexpr std::int32_t kDamaged = 11;
constexpr const char* kReferences = "ReferenceLocationChangeTable";
constexpr const char* kImplements = "ImplChangeTable";
constexpr const char* kProducts = "AsAppliedProductChangeTable";
constexpr const char* kDesired = "AsAppliedDesRateChangeTable";
constexpr const char* kActual = "AsAppliedActRateChangeTable";

/// The tables of changes that a kind reads.
std::set<std::string> TablesOf(std::string_view kind) {
  if (kind == "wire") return {kReferences};
  if (kind == "poly" || kind == "net") return {kReferences, kImplements};
  return {kReferences, kImplements, kProducts, kDesired, kActual};
}

std::string MakeJob(const std::string& path) {
  test::JobBuilder builder(path);
  builder.Reference({1, 0}, 45, -93).Implement({1, 0}, "Disc", {{4, 0, 0, 0}});
  builder.Implement({1, 9000}, "Plough", {{3, 0, 0, 0}}).Products({1, 0}, "Corn");
  builder.DesiredRates({1, 0}, 30).ActualRates({1, 0}, 29);
  for (int i = 0; i < 8; ++i) builder.Epoch({1, 1000 * i}, 0, 3 * i);
  return builder.Finish();
}

// Where only what a machine carried or applied cannot be read, the set is not what the job holds
// though all of its epochs are there.
TEST(UnreadableTables, AreAFailureOfEachKindThatReadsThem) {
  for (const ExportKind* kind : AllKinds()) {
    for (const char* table : {kReferences, kImplements, kProducts, kDesired, kActual}) {
      SCOPED_TRACE(std::string(kind->name) + ", " + table);
      const test::TempFolder folder;
      const std::string job = MakeJob(folder / "job.sqlite");
      test::DamageTable(job, table);
      test::RecordingHost host;
      const auto files = base::NativeFileSystem();
      ExportRun run{host, *files, {}};
      const ExportOutcome outcome = kind->procedure(folder / "set", job, run);
      const bool reads = TablesOf(kind->name).count(table) > 0;
      EXPECT_EQ(outcome.lastStep, reads ? kDamaged : jobstore::kDone);
      EXPECT_EQ(std::filesystem::exists(folder / "set.shp"), outcome.made);
      // Without either there is nothing to draw.
      const bool hasNoGround = kind->name == "net" && table == kImplements;
      EXPECT_EQ(outcome.made, table != kReferences && !hasNoGround);
    }
  }
}

}  // namespace
}  // namespace kestrin::exports
