#include "bench/ogr2ogr.h"
#include "export/point/table.h"
#include "tools/sample/sampleJob.h"

/// The points of a sample job; beside them ogr2ogr making a point set of the same rows.

namespace kestrin::bench {
namespace {

/// Columns that stand for the implement and the products in a query: as many as the
/// point table has, and never changing.
std::string OtherColumns(const std::string& path) {
  jobstore::Job job(path);
  std::string columns;
  const auto fields = point::FieldsOf(point::CountGroups(job));
  for (std::size_t i = point::kImplementField; i < fields.size(); ++i) {
    columns += (fields[i].type == 'C' ? ", 'Planter16' As " : ", 0.762 As ") + fields[i].name;
  }
  return columns;
}

/// A sample job of 1 or 16 sections.
void MakeJob(const std::string& path, std::int64_t rows, int sections) {
  sample::MakeSampleJob(path, {.rows = rows});
  if (sections == 1) Database(path).Execute("Update GpsDataTable Set boomStatusBitfield = 1");
}

void MakeWithOgr2ogr(const std::string& job, const ScratchFolder& folder) {
  DescribePoints(folder / "points.vrt", job,
                 "gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, d_I_B__B2, yaw, pitch, roll, speed, "
                 "type, boomStatusBitfield" +
                     OtherColumns(job));
  RunOgr2ogr(folder / "points.vrt", folder / "ogr.shp");
}

void Points(benchmark::State& state, int sections) {
  const auto makeJob = [=](const std::string& path, std::int64_t rows) {
    MakeJob(path, rows, sections);
  };
  MeasureExport(state, {.kind = exports::kExportKinds[3],
                        .makeJob = makeJob,
                        .query = std::string(jobstore::PointEpochs::Text()),
                        .integers = {9, 10},
                        .pointsARow = 1,
                        .peer = MakeWithOgr2ogr,
                        .firstQuery = std::string(jobstore::BoomStatusMaximum::Text())});
}
BENCHMARK_CAPTURE(Points, 1, 1)->Name("points, 1 section")->Apply(Sizes);
BENCHMARK_CAPTURE(Points, 16, 16)->Name("points, 16 sections")->Apply(Sizes);

}  // namespace
}  // namespace kestrin::bench

BENCHMARK_MAIN();
