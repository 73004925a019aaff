#include <string_view>

#include "bench/blankPicture.h"
#include "bench/floors.h"
#include "bench/sideBySide.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "preview/previewExtent.h"
#include "preview/renderers.h"
#include "tools/sample/jobSchema.h"

/// Selecting a job (rows counted, newest row, extent) and drawing it, without painting, beside
/// the same scans of the job by SQLite alone.

namespace kestrin::bench {
namespace {

/// A job driven to and fro at 10 Hz with 16 sections.
void MakeJob(const std::string& path, std::int64_t rows) {
  Database job(path);
  job.Execute("PRAGMA synchronous=OFF");
  job.Execute(sample::JobSchema());
  job.Execute("INSERT INTO ReferenceLocationChangeTable VALUES (1000, 0, 0.79, -1.63, 300)");
  std::string sections;
  for (int slot = 0; slot < jobstore::kSectionSlots; ++slot) {
    sections += ", 0.762, " + std::to_string(0.762 * slot) + ", 0, 0";
  }
  job.Execute("INSERT INTO ImplChangeTable VALUES (1000, 0, 'Planter', 1" + sections + ")");
  job.Execute("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
              std::to_string(rows) +
              ") INSERT INTO GpsDataTable SELECT 1000 + i / 6000000, i % 6000000 * 100, "
              "i / 1000 * 9.1 + i % 7 * 0.01, abs(i % 2000 - 1000) * 0.31, 0.5, i % 628 * 0.01, "
              "0, 0, 3.1, 8192 + (i % 1000 = 0) * 16384, 7 FROM n");
}

/// A job, and another of five times the rows.
struct Jobs {
  explicit Jobs(std::int64_t rows) {
    MakeJob(job, rows);
    MakeJob(grown, 5 * rows);
  }
  ScratchFolder folder;
  std::string job = folder / "job.sqlite";
  std::string grown = folder / "grown.sqlite";
};

void Select(const std::string& path, preview::PreviewState& state) {
  {
    jobstore::Job job(path);
    std::int32_t count = 0;
    jobstore::GpsKey newest;
    jobstore::ReadFirst<jobstore::EpochCount>(job, count);
    jobstore::ReadFirst<jobstore::NewestEpoch>(job, newest);
    benchmark::DoNotOptimize(newest);
  }
  SilentHost host;
  BlankPicture picture;
  preview::FindPreviewExtent(path, state, picture, host);
}

void ScanAsSelecting(const std::string& path) {
  Database job(path);
  job.Scan(jobstore::EpochCount::Text(), {}, true);
  job.Scan(jobstore::NewestEpoch::Text(), {}, true);
  job.Scan(jobstore::PreviewBoomEpochs::Text());
}

void Selecting(benchmark::State& state) {
  const Jobs jobs(state.range(0));
  preview::PreviewState selected;
  const double peak = PeakOf([&] { Select(jobs.job, selected); });
  SideBySide(state, {{"floor", [&] { ScanAsSelecting(jobs.job); }},
                     {"one", [&] { Select(jobs.job, selected); }},
                     {"grown", [&] { Select(jobs.grown, selected); }}});
  state.counters["peak_MiB"] = peak;
}
BENCHMARK(Selecting)->Name("selecting, extent")->Apply(Sizes);

void Drawing(benchmark::State& state, int kind, std::string_view query, int integerAt) {
  const Jobs jobs(state.range(0));
  preview::PreviewState selected;
  preview::PreviewState selectedGrown;
  Select(jobs.job, selected);
  Select(jobs.grown, selectedGrown);
  SilentHost host;
  BlankPicture picture;
  const auto draw = [&] { preview::DrawPreview(kind, selected, picture, host); };
  const double peak = PeakOf(draw);
  SideBySide(state, {{"floor", [&] { Database(jobs.job).Scan(query, {integerAt}); }},
                     {"one", draw},
                     {"grown", [&] { preview::DrawPreview(kind, selectedGrown, picture, host); }}});
  state.counters["peak_MiB"] = peak;
}
BENCHMARK_CAPTURE(Drawing, wire, 0, jobstore::PreviewWireEpochs::Text(), 4)
    ->Name("preview, path")
    ->Apply(Sizes);
BENCHMARK_CAPTURE(Drawing, boom, 1, jobstore::PreviewBoomEpochs::Text(), -1)
    ->Name("preview, boom")
    ->Apply(Sizes);
BENCHMARK_CAPTURE(Drawing, poly, 2, jobstore::PreviewPolyEpochs::Text(), 4)
    ->Name("preview, coverage")
    ->Apply(Sizes);
BENCHMARK_CAPTURE(Drawing, point, 3, jobstore::PreviewPointEpochs::Text(), -1)
    ->Name("preview, points")
    ->Apply(Sizes);

}  // namespace
}  // namespace kestrin::bench

BENCHMARK_MAIN();
