#include <cmath>
#include <numbers>

#include "bench/exportSides.h"
#include "bench/geosUnion.h"
#include "jobstore/queries.h"
#include "tools/sample/jobSchema.h"
#include "tools/sample/randomness.h"

/// The coverage of jobs that are one polygon, or many.

namespace kestrin::bench {
namespace {

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
  job.Execute(sample::JobSchema());
  job.Execute(
      "BEGIN; INSERT INTO ReferenceLocationChangeTable (gpsWeek, gpsMsec, latitude, longitude, "
      "altitude) VALUES (1000, 0, 0.79, -1.63, 300);"
      "INSERT INTO ImplChangeTable (gpsWeek, gpsMsec, implName, implNumber, width0) "
      "VALUES (1000, 0, 'planter', 1, 9)");
  Statement insert(job.Handle(),
                   "INSERT INTO GpsDataTable (gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type, "
                   "boomStatusBitfield) VALUES (?, ?, ?, ?, ?, 8192, 1)");
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

using Way = Place (*)(std::int64_t);

void Coverage(benchmark::State& state, Way place) {
  const auto makeJob = [=](const std::string& path, std::int64_t rows) {
    MakeJob(path, rows, place);
  };
  MeasureExport(
      state,
      {exports::kExportKinds[2], makeJob, std::string(jobstore::PolyEpochs::Text()), {5}, 2});
}
BENCHMARK_CAPTURE(Coverage, Passes, Passes)->Name("coverage, passes")->Apply(Sizes);
BENCHMARK_CAPTURE(Coverage, Jitter, Jitter)->Name("coverage, jitter")->Apply(Sizes);
BENCHMARK_CAPTURE(Coverage, Wavering, Wavering)->Name("coverage, wavering")->Apply(Sizes);
BENCHMARK_CAPTURE(Coverage, Spiral, Spiral)->Name("coverage, spiral")->Apply(Sizes);
// The dearest there is, in a twentieth of the rows.
BENCHMARK_CAPTURE(Coverage, SparseSpiral, SparseSpiral)
    ->Name("coverage, arms that cross")
    ->Apply(Size<50'000>);

void CoverageBesideGeos(benchmark::State& state) {
  const ScratchFolder folder;
  MakeJob(folder / "job.sqlite", state.range(0), Passes);
  ground::Geos geos;
  BesideGeos(state, exports::kExportKinds[2], folder, geos);
}
BENCHMARK(CoverageBesideGeos)->Name("coverage, passes, beside GEOS")->Apply(Size<50'000>);

}  // namespace
}  // namespace kestrin::bench

BENCHMARK_MAIN();
