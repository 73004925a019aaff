#include "bench/exportSides.h"
#include "export/boom/records.h"
#include "jobstore/queries.h"
#include "tools/sample/jobSchema.h"

/// The boom's sections, and taking up earlier records again, alone.

namespace kestrin::bench {
namespace {

/// A table filled with `count` rows i = 0, 1, ... of the values given.
std::string Fill(const std::string& table, std::int64_t count, const std::string& values) {
  return "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
         std::to_string(count) + ") INSERT INTO " + table + " SELECT " + values + " FROM n";
}

/// A job driven to and fro at 10 Hz with 16 sections and 10,000 rate changes, which
/// return to as many different rates, behind a lone first record of other rates.
void MakeJob(const std::string& path, std::int64_t rows, std::int64_t rates) {
  constexpr std::int64_t kRateChanges = 10'000;
  const std::string perChange = std::to_string(std::max<std::int64_t>(1, rows / kRateChanges));
  Database job(path);
  job.Execute("PRAGMA synchronous=OFF");
  job.Execute(sample::JobSchema());
  job.Execute("INSERT INTO ReferenceLocationChangeTable VALUES (1000, 0, 0.79, -1.63, 300)");
  std::string sections;
  for (int slot = 0; slot < jobstore::kSectionSlots; ++slot) {
    sections += ", 0.762, " + std::to_string(0.762 * slot) + ", 0, 0";
  }
  job.Execute("INSERT INTO ImplChangeTable VALUES (1000, 0, 'Planter', 1" + sections + ")");
  job.Execute("INSERT INTO AsAppliedProductChangeTable VALUES (1000, 100, 'Corn', '', '')");
  job.Execute(Fill("GpsDataTable", rows,
                   "1000 + i / 6000000, i % 6000000 * 100, i / 500 * 9.1 + i % 7 * 0.01, "
                   "abs(i % 1000 - 500) * 0.31, 0.5, i % 628 * 0.01, 0, 0, 3.1, 8192, 7"));
  job.Execute(Fill("AsAppliedActRateChangeTable", std::min(rows, kRateChanges),
                   "1000 + i * " + perChange + " / 6000000, i * " + perChange +
                       " % 6000000 * 100 + 100, 30 + i * 37 % " + std::to_string(rates) +
                       " * 0.01, 0, 0"));
}

/// Rates that never return hold every point; those that do overwrite most.
void Boom(benchmark::State& state, std::int64_t rates) {
  const auto makeJob = [=](const std::string& path, std::int64_t rows) {
    MakeJob(path, rows, rates);
  };
  MeasureExport(state, {exports::kExportKinds[1],
                        makeJob,
                        std::string(jobstore::BoomEpochs::Text()),
                        {5, 6},
                        2 * jobstore::kSectionSlots});
}
BENCHMARK_CAPTURE(Boom, 700, 700)->Name("boom, 700 rates")->Apply(Sizes);
BENCHMARK_CAPTURE(Boom, 10000, 10'000)->Name("boom, 10,000 rates")->Apply(Sizes);

/// Rates that change at every epoch and always return: each line goes into an
/// earlier record. The time per line must not grow with their number.
void TakeUpEarlierRecords(benchmark::State& state) {
  constexpr int kRates = 100;
  for (auto iteration : state) {
    boom::Records records;
    records.StartPeriod(0);
    for (std::int64_t epoch = 0; epoch < state.range(0); ++epoch) {
      const auto number = static_cast<double>(epoch);
      if (epoch == 1) records.StartPeriod(1);
      records.Select({static_cast<double>(epoch * 37 % kRates), 0, 0});
      for (int section = 0; section < jobstore::kSectionSlots; ++section) {
        records.Lay({{number, section + 0.5}, {number, section + 0.0}});
      }
    }
    benchmark::DoNotOptimize(records.Count());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0) * jobstore::kSectionSlots);
}
BENCHMARK(TakeUpEarlierRecords)->RangeMultiplier(10)->Range(1'000, 1'000'000);

}  // namespace
}  // namespace kestrin::bench

BENCHMARK_MAIN();
