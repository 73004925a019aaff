#include <benchmark/benchmark.h>
#include <proj.h>
#include <sqlite3.h>

#include <cmath>
#include <ctime>
#include <numbers>

#include "bench/floors.h"
#include "bench/measures.h"
#include "export/coverage/coverageExport.h"
#include "jobstore/queries.h"
#include "tools/sample/jobSchema.h"
#include "tools/sample/randomness.h"

/// The whole polygon export of a job that is one polygon, against the sum of its
/// floors: the same rows through SQLite, two points a row through PROJ and the same
/// bytes to the disk, each by the shortest way there is.

namespace kestrin {
namespace {

using bench::Database;
using bench::ProjectPoints;
using bench::SecondsOf;
using bench::SilentHost;

class Statement {
 public:
  Statement(sqlite3* database, std::string_view text) {
    if (sqlite3_prepare_v2(database, text.data(), static_cast<int>(text.size()), &handle_,
                           nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(database));
    }
  }
  ~Statement() { sqlite3_finalize(handle_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  bool Step() { return sqlite3_step(handle_) == SQLITE_ROW; }
  sqlite3_stmt* Handle() { return handle_; }

 private:
  sqlite3_stmt* handle_ = nullptr;
};

struct Place {
  double east;
  double north;
  double yaw;
};

constexpr double kPi = std::numbers::pi;

/// To and fro in passes of 800 rows, half a circle of 30 rows between two, the whole
/// field askew.
Place Passes(std::int64_t row) {
  constexpr double kAskew = 0.5;
  const std::int64_t pass = row / 830;
  const double along = static_cast<double>(std::min<std::int64_t>(row % 830, 800)) * 0.6;
  const double turn = static_cast<double>(std::max<std::int64_t>(row % 830 - 800, 0)) * kPi / 30;
  const bool up = pass % 2 == 0;
  const double across = static_cast<double>(pass) * 9.2 + 4.6 * (1 - std::cos(turn));
  const double ahead = (up ? along : 480 - along) + (up ? 1 : -1) * 4.6 * std::sin(turn);
  return {across * std::cos(kAskew) + ahead * std::sin(kAskew),
          ahead * std::cos(kAskew) - across * std::sin(kAskew), kAskew + (up ? turn : kPi - turn)};
}

/// Outwards, the arms 9.2 m apart, so many metres from the middle.
Place OnSpiral(double metres) {
  const double growth = 9.2 / (2 * kPi);
  const double angle = std::sqrt(2 * metres / growth);
  return {growth * angle * std::sin(angle), growth * angle * std::cos(angle), angle + kPi / 2};
}

Place Spiral(std::int64_t row) { return OnSpiral(0.6 * static_cast<double>(row) + 200); }

/// Rows so far apart that hardly a box of many of them lies clear of the newest.
Place SparseSpiral(std::int64_t row) { return OnSpiral(20 * static_cast<double>(row) + 200); }

/// A place as a receiver measures it, a centimetre off and looking somewhat elsewhere.
Place Measured(Place at, std::int64_t row, double wavering) {
  sample::Randomness chance(static_cast<std::uint64_t>(row));
  return {at.east + 0.01 * chance.Noise(), at.north + 0.01 * chance.Noise(),
          at.yaw + wavering * chance.Noise()};
}

/// Passes with a heading that wavers so far that at a fifth of the rows an end of the
/// implement runs backwards; all in one polygon.
Place Wavering(std::int64_t row) { return Measured(Passes(row), row, 0.072); }

/// The same less strongly, and before each end of a pass the vehicle stands, jitters and so
/// cuts its polygons: a fifth again.
Place Jitter(std::int64_t row) {
  constexpr std::int64_t kFrom = 720;
  const std::int64_t held = std::clamp<std::int64_t>(row % 830 - kFrom, 0, 800 - kFrom);
  const bool stands = held > 0 && held < 800 - kFrom;
  return stands ? Measured(Passes(row - held), row, 0.002) : Measured(Passes(row), row, 0.06);
}

void MakeJob(const std::string& path, std::int64_t rows, Place (*place)(std::int64_t)) {
  Database job(path);
  job.Execute("PRAGMA synchronous=OFF");
  job.Execute(kestrin::sample::JobSchema());
  job.Execute(
      "BEGIN; INSERT INTO ReferenceLocationChangeTable (gpsWeek, gpsMsec, latitude, longitude, "
      "altitude) VALUES (1000, 0, 0.79, -1.63, 300);"
      "INSERT INTO ImplChangeTable (gpsWeek, gpsMsec, implName, implNumber, width0) "
      "VALUES (1000, 0, 'planter', 1, 9)");
  Statement insert(job.Handle(),
                   "INSERT INTO GpsDataTable (gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type) "
                   "VALUES (?, ?, ?, ?, ?, 8192)");
  for (std::int64_t row = 0; row < rows; ++row) {
    const Place at = place(row);
    sqlite3_bind_int64(insert.Handle(), 1, 1000 + row / 6000000);
    sqlite3_bind_int64(insert.Handle(), 2, row % 6000000 * 100);
    sqlite3_bind_double(insert.Handle(), 3, at.east);
    sqlite3_bind_double(insert.Handle(), 4, at.north);
    sqlite3_bind_double(insert.Handle(), 5, at.yaw);
    insert.Step();
    sqlite3_reset(insert.Handle());
  }
  job.Execute("COMMIT");
}

/// Processor seconds an action takes in this thread, whatever else the machine does.
template <class Action>
double CpuSecondsOf(Action action) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
  };
  const double start = now();
  action();
  return now() - start;
}

void PolyExport(benchmark::State& state, Place (*place)(std::int64_t)) {
  const bench::ScratchFolder folder;
  const std::string job = folder / "job.sqlite";
  const std::string base = folder / "job_POLY";
  MakeJob(job, state.range(0), place);
  SilentHost host;
  const auto files = kestrin::base::NativeFileSystem();
  kestrin::exports::ExportRun run{host, *files, {}};
  double whole = 0;
  double scan = 0;
  double projection = 0;
  double bytes = 0;
  double peak = 0;
  double wholeCpu = 0;
  double floorsCpu = 0;
  for (auto iteration : state) {
    bench::ResetPeakMemory();
    const double before = bench::PeakMemory();
    const double seconds = SecondsOf([&] {
      wholeCpu += CpuSecondsOf([&] { kestrin::coverage::ExportPolyShape(base, job, run); });
    });
    peak = bench::PeakMemory() - before;
    state.SetIterationTime(seconds);
    whole += seconds;
    floorsCpu += CpuSecondsOf([&] {
      scan += SecondsOf([&] { Database(job).Scan(kestrin::jobstore::PolyEpochs::Text(), {5}); });
      projection += SecondsOf([&] { ProjectPoints(2 * state.range(0)); });
      bytes += SecondsOf([&] { bench::WriteSetPlainly(base, folder / "plain"); });
    });
  }
  const auto average = [](double seconds) {
    return benchmark::Counter(seconds, benchmark::Counter::kAvgIterations);
  };
  state.counters["scan_s"] = average(scan);
  state.counters["proj_s"] = average(projection);
  state.counters["bytes_s"] = average(bytes);
  state.counters["times_floors"] = whole / (scan + projection + bytes);
  state.counters["cpu_times_floors"] = wholeCpu / floorsCpu;
  state.counters["records"] =
      static_cast<double>((std::filesystem::file_size(base + ".shx") - 100) / 8);
  state.counters["peak_MiB"] = peak;
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Sizes(benchmark::internal::Benchmark* bench) {
  bench->RangeMultiplier(10)->Range(10'000, 1'000'000);
  bench->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(PolyExport, Passes, Passes)->Apply(Sizes);
BENCHMARK_CAPTURE(PolyExport, Spiral, Spiral)->Apply(Sizes);
BENCHMARK_CAPTURE(PolyExport, SparseSpiral, SparseSpiral)->Apply(Sizes);
BENCHMARK_CAPTURE(PolyExport, Jitter, Jitter)->Apply(Sizes);
BENCHMARK_CAPTURE(PolyExport, Wavering, Wavering)->Apply(Sizes);

}  // namespace
}  // namespace kestrin

BENCHMARK_MAIN();
