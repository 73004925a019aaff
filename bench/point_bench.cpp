#include <benchmark/benchmark.h>
#include <proj.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

#include "bench/floors.h"
#include "bench/measures.h"
#include "export/point/pointExport.h"
#include "export/point/table.h"
#include "geo/localOffsets.h"
#include "jobstore/queries.h"
#include "tools/sample/sampleJob.h"

/// The whole point export of a sample job against the sum of its floors (the same
/// rows through SQLite, as many points through PROJ and the same bytes to the disk,
/// each by the shortest way there is), and ogr2ogr making a point set of the same
/// rows, where it is installed. Side by side: other work on the machine slows both.

namespace kestrin {
namespace {

using bench::Database;
using bench::ProjectPoints;
using bench::SilentHost;

/// What an action takes by the clock and of processors, its child processes included.
struct Cost {
  double seconds = 0;
  double processorSeconds = 0;

  Cost& operator+=(const Cost& other) {
    seconds += other.seconds;
    processorSeconds += other.processorSeconds;
    return *this;
  }
};

double ProcessorSeconds() {
  double sum = 0;
  for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
    rusage usage{};
    getrusage(who, &usage);
    for (const timeval& time : {usage.ru_utime, usage.ru_stime}) {
      sum += static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    }
  }
  return sum;
}

template <class Action>
Cost CostOf(Action action) {
  const double before = ProcessorSeconds();
  const double seconds = bench::SecondsOf(action);
  return {seconds, ProcessorSeconds() - before};
}

/// Columns that stand for the implement and the products in a query: as many as the
/// point table has, and never changing.
std::string OtherColumns(kestrin::jobstore::Job& job) {
  std::string columns;
  const auto fields = kestrin::point::FieldsOf(kestrin::point::CountGroups(job));
  for (std::size_t i = kestrin::point::kImplementField; i < fields.size(); ++i) {
    columns += (fields[i].type == 'C' ? "'Planter16' As " : "0.762 As ") + fields[i].name + ", ";
  }
  return columns;
}

/// A layer of the same rows about the job's first reference location.
void DescribeLayer(const std::string& vrt, const std::string& jobPath) {
  kestrin::jobstore::Job job(jobPath);
  kestrin::jobstore::ReferenceRow reference;
  if (!kestrin::jobstore::ReadFirst<kestrin::jobstore::References>(job, reference))
    throw std::runtime_error("no reference");
  const kestrin::geo::WorkingPlane plane(reference);
  const std::string easting = std::to_string(plane.At(0, 0).easting);
  const std::string northing = std::to_string(plane.At(0, 0).northing);
  std::ofstream(vrt) << "<OGRVRTDataSource><OGRVRTLayer name='points'><SrcDataSource>" << jobPath
                     << "</SrcDataSource><SrcSQL>Select gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, "
                        "d_I_B__B2, yaw, pitch, roll, speed, type, boomStatusBitfield, "
                     << OtherColumns(job) << easting << " + e_I_B__B2 As x, " << northing
                     << " + n_I_B__B2 As y From GpsDataTable Where type &amp; 8192 Order By "
                        "gpsWeek, gpsMsec</SrcSQL><GeometryType>wkbPoint</GeometryType><LayerSRS>"
                        "EPSG:"
                     << 26900 + kestrin::geo::UtmZoneOf(reference.latitude, reference.longitude)
                     << "</LayerSRS><GeometryField encoding='PointFromColumns' x='x' y='y'/>"
                        "</OGRVRTLayer></OGRVRTDataSource>\n";
}

bool HasOgr2ogr() { return std::system("command -v ogr2ogr >/dev/null 2>&1") == 0; }

void MakeWithOgr2ogr(const std::string& vrt, const std::string& shp) {
  const std::string command =
      "ogr2ogr -overwrite -t_srs EPSG:4269 " + shp + " " + vrt + " >/dev/null 2>&1";
  if (std::system(command.c_str()) != 0) throw std::runtime_error("ogr2ogr failed");
}

/// A sample job of 1 or 16 sections.
void MakeJob(const std::string& path, std::int64_t rows, std::int64_t sections) {
  kestrin::sample::SampleOptions options;
  options.rows = rows;
  kestrin::sample::MakeSampleJob(path, options);
  if (sections > 1) return;
  sqlite3* job = nullptr;
  if (sqlite3_open(path.c_str(), &job) != SQLITE_OK ||
      sqlite3_exec(job, "Update GpsDataTable Set boomStatusBitfield = 1", nullptr, nullptr,
                   nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(job));
  }
  sqlite3_close(job);
}

void PointExport(benchmark::State& state) {
  const bench::ScratchFolder folder;
  const std::string job = folder / "job.sqlite";
  const std::string base = folder / "job_POINT";
  MakeJob(job, state.range(0), state.range(1));
  DescribeLayer(folder / "points.vrt", job);
  const bool withOgr2ogr = HasOgr2ogr();
  SilentHost host;
  const auto files = kestrin::base::NativeFileSystem();
  kestrin::exports::ExportRun run{host, *files, {}};
  Cost whole;
  Cost floors;
  Cost ogr2ogr;
  double peak = 0;
  for (auto iteration : state) {
    bench::ResetPeakMemory();
    const double before = bench::PeakMemory();
    const Cost cost = CostOf([&] { kestrin::point::ExportPointShape(base, job, run); });
    peak = bench::PeakMemory() - before;
    state.SetIterationTime(cost.seconds);
    whole += cost;
    floors += CostOf([&] { Database(job).Scan(kestrin::jobstore::PointEpochs::Text(), {9, 10}); });
    floors += CostOf([&] { ProjectPoints(state.range(0)); });
    floors += CostOf([&] { bench::WriteSetPlainly(base, folder / "plain"); });
    if (withOgr2ogr) {
      ogr2ogr += CostOf([&] { MakeWithOgr2ogr(folder / "points.vrt", folder / "ogr.shp"); });
    }
  }
  state.counters["times_floors"] = whole.seconds / floors.seconds;
  state.counters["cpu_times_floors"] = whole.processorSeconds / floors.processorSeconds;
  if (withOgr2ogr) {
    state.counters["ogr2ogr_times_ours"] = ogr2ogr.seconds / whole.seconds;
    state.counters["cpu_ogr2ogr_times_ours"] = ogr2ogr.processorSeconds / whole.processorSeconds;
  }
  state.counters["peak_MiB"] = peak;
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(PointExport)
    ->ArgNames({"rows", "sections"})
    ->ArgsProduct({{10'000, 100'000, 1'000'000}, {1, 16}})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestrin

BENCHMARK_MAIN();
