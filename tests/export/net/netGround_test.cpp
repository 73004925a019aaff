#include <gtest/gtest.h>

#include <cmath>

#include "export/net/netExport.h"
#include "tests/export/net/literalNet.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/manyJobs.h"
#include "tests/support/recordingHost.h"
#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"
#include "tools/sample/randomness.h"
#include "tools/sample/sampleJob.h"

namespace kestrin::net {
namespace {

struct GroundCase {
  const char* profile;
  std::uint64_t seed;
  bool allSections;
  std::int64_t rows = 2500;
};

class NetGroundOfSamples : public testing::TestWithParam<GroundCase> {};

TEST_P(NetGroundOfSamples, IsTheUnionOfAllQuadrilateralsInValidRings) {
  const test::TempFolder folder;
  const std::string job = folder / "job.sqlite";
  sample::MakeSampleJob(
      job, {.profile = GetParam().profile, .rows = GetParam().rows, .seed = GetParam().seed});
  test::RecordingHost host;
  const auto files = base::NativeFileSystem();
  exports::ExportRun run{host, *files, {}, GetParam().allSections};
  const std::string base = folder / "job_NET";
  const exports::ExportOutcome outcome = ExportNetShape(base, job, run);
  ASSERT_TRUE(outcome.made);
  ground::Geos geos;
  const test::LiteralNet literal = test::LiteralNetOf(job, GetParam().allSections, geos);
  const ground::Geos::Area ground = test::GroundOfSet(base, job, geos);
  EXPECT_LT(test::PartDiffering(literal.ground, ground, geos), 0.001);
  const double gross = std::stod(test::ReadShapeSet(base).rows[0][2]);
  EXPECT_NEAR(gross, literal.sweptSquareMetres * 0.000247105381, 0.006);
}

/// By what part of it the ground of a job's set is not the union of all quadrilaterals.
double PartWrong(const test::TempFolder& folder, const std::string& job) {
  test::RecordingHost host;
  const auto files = base::NativeFileSystem();
  exports::ExportRun run{host, *files, {}};
  EXPECT_TRUE(ExportNetShape(folder / "job_NET", job, run).made);
  ground::Geos geos;
  const test::LiteralNet literal = test::LiteralNetOf(job, false, geos);
  const ground::Geos::Area ground = test::GroundOfSet(folder / "job_NET", job, geos);
  return test::PartDiffering(literal.ground, ground, geos);
}

/// Machines that turn on the spot, reverse and go astray, as no sample does.
TEST(NetGround, OfWildWaysIsTheUnionOfAllQuadrilateralsToo) {
  for (std::uint64_t seed = 1; seed <= 8; ++seed) {
    const test::TempFolder folder;
    test::JobBuilder builder(folder / "job.sqlite");
    builder.Reference({1, 0}, 45.25, -93.5);
    builder.Implement({1, 0}, "a", {{6, -2, -3, 0}, {4, -2, 2, 0}, {5, -2, 8, 0}});
    sample::Randomness chance(seed);
    jobstore::EpochRow row;
    row.type = test::kTakesPart;
    for (int i = 0; i < 1500; ++i) {
      row.time = {1, 100 * i};
      const double step = seed % 2 == 0 ? 1.5 : 12;
      row.yaw += (chance.Uniform() - 0.5) * (chance.Chance(0.02) ? 6 : 0.4);
      const double way = chance.Chance(0.2) ? -step : step * chance.Uniform();
      row.east += way * std::sin(row.yaw);
      row.north += way * std::cos(row.yaw);
      if (chance.Chance(0.03)) row.boomStatus = static_cast<std::int32_t>(chance.Next() % 8);
      builder.Epoch(row);
    }
    EXPECT_LT(PartWrong(folder, builder.Finish()), 0.001) << seed;
  }
}

/// A receiver's noise lays a step a row over the same ground, and nearly all are left out.
TEST(NetGround, OfAMachineThatStandsForLongIsTheUnionOfAllQuadrilateralsToo) {
  const test::TempFolder folder;
  test::JobBuilder builder(folder / "job.sqlite");
  builder.Reference({1, 0}, 45.25, -93.5);
  builder.Implement({1, 0}, "a", {{6, -2, -3, 0}, {6, -2, 3, 0}});
  sample::Randomness chance(1);
  for (int i = 0; i < 3000; ++i) {
    jobstore::EpochRow row;
    row.type = test::kTakesPart;
    row.time = {1, 100 * i};
    row.boomStatus = 3;
    row.east = 30 + 0.1 * chance.Uniform();
    row.north = 60 + 0.1 * chance.Uniform() + 0.0001 * i;
    row.yaw = 0.02 * chance.Uniform();
    builder.Epoch(row);
  }
  EXPECT_LT(PartWrong(folder, builder.Finish()), 0.001);
}

/// The literal ground of a job takes seconds, so these are few: long booms and short ones,
/// overlap, turns, gaps and changes of the implement.
std::vector<GroundCase> GroundCases() {
  return {{"planter", 1, false},
          {"planter", 2, true},
          {"sprayer", 1, false},
          {"combine", 2, true},
          {"headland-only", 1, false},
          {"dropouts", 1, false},
          {"two-implements", 2, true},
          {"planter", 1, false, 1000},
          {"refill", 1, false, 1000},
          {"rollover", 1, false, 1000},
          {"headland-only", 1, false, 1000},
          {"two-implements", 1, false, 1000},
          {"dropouts", 1, false, 1000},
          {"combine", 1, true, 1000},
          {"jitter", 1, false, 1000}};
}

INSTANTIATE_TEST_SUITE_P(NetGround, NetGroundOfSamples, testing::ValuesIn(GroundCases()),
                         [](const auto& at) {
                           return test::TestName(at.param.profile) +
                                  (at.param.allSections ? "Whole" : "BySection") +
                                  std::to_string(at.param.rows);
                         });

}  // namespace
}  // namespace kestrin::net
