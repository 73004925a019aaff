#include <benchmark/benchmark.h>
#include <proj.h>
#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/floors.h"
#include "bench/measures.h"
#include "export/boom/boomExport.h"
#include "export/boom/records.h"
#include "jobstore/queries.h"
#include "tools/sample/jobSchema.h"

/// The whole boom export against the sum of its floors: the same rows through
/// SQLite, as many points through PROJ and the same bytes to the disk, each by the
/// shortest way there is. And taking up earlier records again, alone.

namespace kestrin {
namespace {

using bench::Database;
using bench::ProjectPoints;
using bench::SecondsOf;
using bench::SilentHost;

constexpr std::int64_t kPointsPerEpoch = 2 * kestrin::jobstore::kSectionSlots;

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
  job.Execute(kestrin::sample::JobSchema());
  job.Execute("INSERT INTO ReferenceLocationChangeTable VALUES (1000, 0, 0.79, -1.63, 300)");
  std::string sections;
  for (int slot = 0; slot < kestrin::jobstore::kSectionSlots; ++slot) {
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

void BoomExport(benchmark::State& state) {
  const bench::ScratchFolder folder;
  const std::string job = folder / "job.sqlite";
  const std::string base = folder / "job_BOOM";
  const std::int64_t points = state.range(0) * kPointsPerEpoch;
  MakeJob(job, state.range(0), state.range(1));
  SilentHost host;
  const auto files = kestrin::base::NativeFileSystem();
  kestrin::exports::ExportRun run{host, *files, {}};
  double whole = 0;
  double scan = 0;
  double projection = 0;
  double bytes = 0;
  double peak = 0;
  for (auto iteration : state) {
    bench::ResetPeakMemory();
    const double before = bench::PeakMemory();
    const double seconds = SecondsOf([&] { kestrin::boom::ExportBoomShape(base, job, run); });
    peak = bench::PeakMemory() - before;
    state.SetIterationTime(seconds);
    whole += seconds;
    scan += SecondsOf([&] { Database(job).Scan(kestrin::jobstore::BoomEpochs::Text(), {5, 6}); });
    projection += SecondsOf([&] { ProjectPoints(points); });
    bytes += SecondsOf([&] { bench::WriteSetPlainly(base, folder / "plain"); });
  }
  const auto average = [](double seconds) {
    return benchmark::Counter(seconds, benchmark::Counter::kAvgIterations);
  };
  state.counters["scan_s"] = average(scan);
  state.counters["proj_s"] = average(projection);
  state.counters["bytes_s"] = average(bytes);
  state.counters["times_floors"] = whole / (scan + projection + bytes);
  state.counters["peak_MiB"] = peak;
  state.counters["bytes_per_point"] = peak * 1024 * 1024 / static_cast<double>(points);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
// Rates that never return hold every point; those that do overwrite most.
BENCHMARK(BoomExport)
    ->ArgNames({"rows", "rates"})
    ->Args({10'000, 700})
    ->Args({100'000, 700})
    ->Args({1'000'000, 700})
    ->Args({1'000'000, 10'000})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// Rates that change at every epoch and always return: each line goes into an
/// earlier record. The time per line must not grow with their number.
void TakeUpEarlierRecords(benchmark::State& state) {
  constexpr int kRates = 100;
  for (auto iteration : state) {
    kestrin::boom::Records records;
    records.StartPeriod(0);
    for (std::int64_t epoch = 0; epoch < state.range(0); ++epoch) {
      const auto number = static_cast<double>(epoch);
      if (epoch == 1) records.StartPeriod(1);
      records.Select({static_cast<double>(epoch * 37 % kRates), 0, 0});
      for (int section = 0; section < kestrin::jobstore::kSectionSlots; ++section) {
        records.Lay({{number, section + 0.5}, {number, section + 0.0}});
      }
    }
    benchmark::DoNotOptimize(records.Count());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0) * kestrin::jobstore::kSectionSlots);
}
BENCHMARK(TakeUpEarlierRecords)->RangeMultiplier(10)->Range(1'000, 1'000'000);

}  // namespace
}  // namespace kestrin

BENCHMARK_MAIN();
