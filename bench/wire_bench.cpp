#include <benchmark/benchmark.h>
#include <proj.h>
#include <sqlite3.h>

#include "bench/floors.h"
#include "bench/measures.h"
#include "export/wire/wireExport.h"
#include "jobstore/queries.h"
#include "tools/sample/jobSchema.h"

/// The whole wire export against the sum of its floors: the same rows through
/// SQLite, as many points through PROJ and the same bytes to the disk, each by the
/// shortest way there is.

namespace kestrin {
namespace {

using bench::Database;
using bench::ProjectPoints;
using bench::SecondsOf;
using bench::SilentHost;

/// A job driven to and fro at 10 Hz in stretches of 500 epochs.
void MakeJob(const std::string& path, std::int64_t rows) {
  Database job(path);
  job.Execute("PRAGMA synchronous=OFF");
  job.Execute(kestrin::sample::JobSchema());
  job.Execute(
      "INSERT INTO ReferenceLocationChangeTable (gpsWeek, gpsMsec, latitude, longitude, altitude) "
      "VALUES (1000, 0, 0.79, -1.63, 300)");
  job.Execute(
      "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
      std::to_string(rows) +
      ") INSERT INTO GpsDataTable (gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, d_I_B__B2, yaw, pitch, "
      "roll, speed, type, boomStatusBitfield) SELECT 1000 + i / 6000000, i % 6000000 * 100, "
      "i / 500 * 9.1 + i % 7 * 0.01, abs(i % 1000 - 500) * 0.31, 0.5, 0.1, 0, 0, 3.1, "
      "8192 + CASE WHEN i % 500 = 0 THEN 16384 ELSE 0 END, 7 FROM n");
}

void WireExport(benchmark::State& state) {
  const bench::ScratchFolder folder;
  const std::string job = folder / "job.sqlite";
  const std::string base = folder / "job_WIRE";
  MakeJob(job, state.range(0));
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
    const double seconds = SecondsOf([&] { kestrin::wire::ExportWireShape(base, job, run); });
    peak = bench::PeakMemory() - before;
    state.SetIterationTime(seconds);
    whole += seconds;
    scan += SecondsOf([&] { Database(job).Scan(kestrin::jobstore::WireEpochs::Text(), {4}); });
    projection += SecondsOf([&] { ProjectPoints(state.range(0)); });
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
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(WireExport)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestrin

BENCHMARK_MAIN();
