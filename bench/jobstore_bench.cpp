#include "bench/floors.h"
#include "bench/sideBySide.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tools/sample/sampleJob.h"

/// What reading a job costs above the library itself: the widest query over all rows.

namespace kestrin::bench {
namespace {

void ReadRows(const std::string& path) {
  jobstore::Job job(path);
  jobstore::Query<jobstore::PointEpochs> epochs(job);
  for (jobstore::EpochRow row; epochs.Next(row);) benchmark::DoNotOptimize(row);
}

void Reading(benchmark::State& state) {
  const ScratchFolder folder;
  const std::string job = folder / "job.sqlite";
  sample::MakeSampleJob(job, {.rows = state.range(0)});
  SideBySide(state, {{"floor",
                      [&] {
                        Database(job).Scan(jobstore::PointEpochs::Text(), {9, 10});
                      }},
                     {"one", [&] { ReadRows(job); }}});
}
BENCHMARK(Reading)->Name("part: reading rows")->Apply(Sizes);

}  // namespace
}  // namespace kestrin::bench

BENCHMARK_MAIN();
