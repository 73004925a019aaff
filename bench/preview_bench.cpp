#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/floors.h"
#include "bench/measures.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "preview/previewExtent.h"
#include "preview/renderers.h"
#include "tools/sample/jobSchema.h"

/// What selecting a job and drawing its preview cost, against the same scans of the
/// job by SQLite alone: rows counted, newest row, extent, drawing. The picture takes
/// the calls and paints nothing.

namespace kestrin {
namespace {

using bench::Database;
using bench::SecondsOf;

/// A job driven to and fro at 10 Hz with 16 sections.
void MakeJob(const std::string& path, std::int64_t rows) {
  Database job(path);
  job.Execute("PRAGMA synchronous=OFF");
  job.Execute(kestrin::sample::JobSchema());
  job.Execute("INSERT INTO ReferenceLocationChangeTable VALUES (1000, 0, 0.79, -1.63, 300)");
  std::string sections;
  for (int slot = 0; slot < kestrin::jobstore::kSectionSlots; ++slot) {
    sections += ", 0.762, " + std::to_string(0.762 * slot) + ", 0, 0";
  }
  job.Execute("INSERT INTO ImplChangeTable VALUES (1000, 0, 'Planter', 1" + sections + ")");
  job.Execute("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
              std::to_string(rows) +
              ") INSERT INTO GpsDataTable SELECT 1000 + i / 6000000, i % 6000000 * 100, "
              "i / 1000 * 9.1 + i % 7 * 0.01, abs(i % 2000 - 1000) * 0.31, 0.5, i % 628 * 0.01, "
              "0, 0, 3.1, 8192 + (i % 1000 = 0) * 16384, 7 FROM n");
}

/// Counts the calls.
class BlankPicture : public preview::Picture {
 public:
  double Width() const override { return 504; }
  double Height() const override { return 504; }
  void Clear() override {}
  void Polyline(std::span<const preview::PicturePoint> points, preview::Bgr) override {
    Count(points.data());
  }
  void Polygon(std::span<const preview::PicturePoint> points, preview::Bgr, preview::Bgr) override {
    Count(points.data());
  }
  void Line(preview::PicturePoint from, preview::PicturePoint to, preview::Bgr) override {
    benchmark::DoNotOptimize(to);
    Count(from);
  }
  void Circle(preview::PicturePoint centre, std::int32_t, preview::Bgr) override { Count(centre); }
  void Refresh() override {}

  std::int64_t calls = 0;

 private:
  template <class What>
  void Count(What what) {
    benchmark::DoNotOptimize(what);
    ++calls;
  }
};

class CountingHost : public kestrin::base::RunHost {
 public:
  void CountRow() override { ++rows; }
  void Yield() override {}
  void ShowMessage(const std::string& text) override { throw std::runtime_error(text); }

  std::int64_t rows = 0;
};

struct KindScan {
  std::string_view text;
  int integerAt;
};
constexpr KindScan kScans[]{{kestrin::jobstore::PreviewWireEpochs::Text(), 4},
                            {kestrin::jobstore::PreviewBoomEpochs::Text(), -1},
                            {kestrin::jobstore::PreviewPolyEpochs::Text(), 4},
                            {kestrin::jobstore::PreviewPointEpochs::Text(), -1}};

void SelectAndPreview(const std::string& path, int kind, BlankPicture& picture) {
  {
    kestrin::jobstore::Job job(path);
    std::int32_t count = 0;
    kestrin::jobstore::GpsKey newest;
    kestrin::jobstore::ReadFirst<kestrin::jobstore::EpochCount>(job, count);
    kestrin::jobstore::ReadFirst<kestrin::jobstore::NewestEpoch>(job, newest);
    benchmark::DoNotOptimize(newest);
  }
  CountingHost host;
  kestrin::preview::PreviewState state;
  kestrin::preview::FindPreviewExtent(path, state, picture, host);
  kestrin::preview::DrawPreview(kind, state, picture, host);
}

void ScanAlone(const std::string& path, const KindScan& scan) {
  Database job(path);
  job.Scan(kestrin::jobstore::EpochCount::Text(), {}, true);
  job.Scan(kestrin::jobstore::NewestEpoch::Text(), {}, true);
  job.Scan(kestrin::jobstore::PreviewBoomEpochs::Text());
  job.Scan(scan.text, {scan.integerAt});
}

void Preview(benchmark::State& state) {
  const bench::ScratchFolder folder;
  const std::string job = folder / "job.sqlite";
  const int kind = static_cast<int>(state.range(1));
  MakeJob(job, state.range(0));
  double whole = 0;
  double scans = 0;
  BlankPicture picture;
  for (auto iteration : state) {
    picture.calls = 0;
    const double seconds = SecondsOf([&] { SelectAndPreview(job, kind, picture); });
    state.SetIterationTime(seconds);
    whole += seconds;
    scans += SecondsOf([&] { ScanAlone(job, kScans[kind]); });
  }
  state.counters["scans_s"] = benchmark::Counter(scans, benchmark::Counter::kAvgIterations);
  state.counters["times_scans"] = whole / scans;
  state.counters["calls"] = static_cast<double>(picture.calls);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Preview)
    ->ArgNames({"rows", "kind"})
    ->ArgsProduct({{10'000, 100'000, 1'000'000}, {0, 1, 2, 3}})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestrin

BENCHMARK_MAIN();
