#include "bench/ogr2ogr.h"
#include "tools/sample/jobSchema.h"

/// The driven path; beside it ogr2ogr joining the points of each stretch to a line.

namespace kestrin::bench {
namespace {

/// A job driven to and fro at 10 Hz in stretches of 500 epochs.
void MakeJob(const std::string& path, std::int64_t rows) {
  Database job(path);
  job.Execute("PRAGMA synchronous=OFF");
  job.Execute(sample::JobSchema());
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

void JoinWithOgr2ogr(const std::string& job, const ScratchFolder& folder) {
  DescribePoints(folder / "points.vrt", job,
                 "Sum(type &amp; 16384) Over (Order By gpsWeek, gpsMsec) As stretch");
  RunOgr2ogr(folder / "points.vrt", folder / "ogr.shp",
             "-dialect SQLite -sql 'Select stretch, MakeLine(geometry) From points "
             "Group By stretch'");
}

void Path(benchmark::State& state) {
  MeasureExport(state, {exports::kExportKinds[0],
                        MakeJob,
                        std::string(jobstore::WireEpochs::Text()),
                        {4},
                        1,
                        JoinWithOgr2ogr});
}
BENCHMARK(Path)->Name("path")->Apply(Sizes);

}  // namespace
}  // namespace kestrin::bench

BENCHMARK_MAIN();
