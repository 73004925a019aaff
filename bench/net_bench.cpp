#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <vector>

#include "bench/floors.h"
#include "bench/measures.h"
#include "export/coverage/coverageExport.h"
#include "export/ground/geos.h"
#include "export/net/netExport.h"
#include "export/net/netGround.h"
#include "geo/localOffsets.h"
#include "jobstore/epochs.h"
#include "jobstore/job.h"
#include "tools/sample/sampleJob.h"

/// The whole export of the net ground, against the coverage polygons of the same job, and at a
/// size where that ends in reasonable time against what GEOS takes to join all section
/// quadrilaterals, which must come to the same ground.

namespace kestrin {
namespace {

using bench::SecondsOf;
using ground::Geos;

geo::UtmPoint Aside(geo::UtmPoint at, double yaw, double ahead, double right) {
  return {at.easting + std::sin(yaw) * ahead + std::cos(yaw) * right,
          at.northing + std::cos(yaw) * ahead - std::sin(yaw) * right};
}

struct Row {
  geo::UtmPoint at;
  double yaw = 0;
  std::int32_t on = 0;
  bool begins = false;
};

std::vector<Row> RowsOf(jobstore::Job& job) {
  geo::LocalOffsets<jobstore::References> offsets(job);
  jobstore::Query<jobstore::BoomEpochs> epochs(job);
  std::vector<Row> rows;
  for (jobstore::BoomEpochs::Row row; epochs.Next(row);) {
    offsets.AdvanceTo(row.time);
    rows.push_back(
        {offsets.Plane().At(row.east, row.north), row.yaw, row.boomStatus, row.BeginsStretch()});
  }
  return rows;
}

/// The quadrilaterals of a job with one implement.
std::vector<Geos::Area> QuadsOf(const std::string& path, Geos& geos) {
  jobstore::Job job(path);
  jobstore::ImplementRow implement;
  jobstore::ReadFirst<jobstore::Implements>(job, implement);
  const std::vector<Row> rows = RowsOf(job);
  std::vector<Geos::Area> quads;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const Row& from = rows[i - 1];
    const Row& to = rows[i];
    if (to.begins) continue;
    for (std::size_t s = 0; s < implement.sections.size(); ++s) {
      const auto& [width, x, y, z] = implement.sections[s];
      if ((from.on & to.on & (1 << s)) == 0 || !(width > 0)) continue;
      const auto l0 = Aside(from.at, from.yaw, x, y - width / 2);
      const auto r0 = Aside(from.at, from.yaw, x, y + width / 2);
      const auto l1 = Aside(to.at, to.yaw, x, y - width / 2);
      const auto r1 = Aside(to.at, to.yaw, x, y + width / 2);
      Geos::Area quad = geos.Inside(ground::Line{l0, l1, r1, r0, l0});
      // Bow ties are of machines that stand.
      quads.push_back(geos.IsValid(quad) ? std::move(quad) : geos.Mended(quad));
    }
  }
  return quads;
}

/// A sample job in a folder of its own, and what exporting it needs.
struct Trial {
  Trial(const char* profile, std::int64_t rows) {
    sample::MakeSampleJob(job, {.profile = profile, .rows = rows});
  }

  double SecondsOfNet() {
    return SecondsOf([&] { net::ExportNetShape(folder / "job_NET", job, run); });
  }

  bench::ScratchFolder folder;
  std::string job = folder / "job.sqlite";
  bench::SilentHost host;
  std::unique_ptr<base::FileSystem> files = base::NativeFileSystem();
  exports::ExportRun run{host, *files, {}};
};

/// The ground that the export writes, in metres.
Geos::Area NetGroundOf(const std::string& path, Geos& geos) {
  bench::SilentHost host;
  jobstore::Job job(path);
  net::Setups setups = net::ReadSetups(job, host);
  net::Track track(setups, false);
  for (const Row& row : RowsOf(job)) track.Add(row.at, row.yaw, 0, row.on, row.begins);
  std::vector<Geos::Area> areas;
  for (const ground::Piece& piece : net::NetGround(track, host).pieces) {
    areas.push_back(geos.Inside(piece));
  }
  return geos.Union(std::move(areas));
}

void NetExport(benchmark::State& state, const char* profile) {
  Trial trial(profile, state.range(0));
  double whole = 0;
  double poly = 0;
  double peak = 0;
  for (auto iteration : state) {
    poly += SecondsOf(
        [&] { coverage::ExportPolyShape(trial.folder / "job_POLY", trial.job, trial.run); });
    bench::ResetPeakMemory();
    const double before = bench::PeakMemory();
    const double seconds = trial.SecondsOfNet();
    peak = bench::PeakMemory() - before;
    state.SetIterationTime(seconds);
    whole += seconds;
  }
  state.counters["times_poly"] = whole / poly;
  state.counters["peak_MiB"] = peak;
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void NetAgainstGeos(benchmark::State& state, const char* profile) {
  Trial trial(profile, state.range(0));
  Geos geos;
  double ours = 0;
  double theirs = 0;
  double differing = 0;
  for (auto iteration : state) {
    const double seconds = trial.SecondsOfNet();
    state.SetIterationTime(seconds);
    ours += seconds;
    std::vector<Geos::Area> quads = QuadsOf(trial.job, geos);
    Geos::Area all;
    theirs += SecondsOf([&] { all = geos.Union(std::move(quads)); });
    const Geos::Area ground = NetGroundOf(trial.job, geos);
    const Geos::Area other = geos.Own(GEOSSymDifference_r(geos.Handle(), all.get(), ground.get()));
    differing = geos.SquareMetres(other) / geos.SquareMetres(all);
  }
  state.counters["geos_times_ours"] = theirs / ours;
  state.counters["differing_percent"] = 100 * differing;
}

BENCHMARK_CAPTURE(NetExport, Sprayer, "sprayer")
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(NetExport, Planter, "planter")
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(NetAgainstGeos, Sprayer, "sprayer")
    ->Arg(50'000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(NetAgainstGeos, Planter, "planter")
    ->Arg(50'000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestrin

BENCHMARK_MAIN();
