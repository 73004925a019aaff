#include <filesystem>
#include <string>

#include "bench/exportSides.h"
#include "tools/sample/sampleJob.h"

/// kestrin-export as a user starts it, its processes timed from outside. Here "floor" is the same
/// work one after another on one thread.

namespace kestrin::bench {
namespace {

/// The program beside this one.
std::string Exporter() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "kestrin-export --quiet";
}

bool KnowsThreads() {
  return std::system((Exporter() + " --help | grep -q -e --threads").c_str()) == 0;
}

/// Memory of all kinds is that of the largest child process so far, which they are.
double PeakOfChildren() {
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

void AllKinds(benchmark::State& state) {
  if (!KnowsThreads()) return state.SkipWithError("no --threads");
  const ScratchFolder folder;
  const std::string job = folder / "job.sqlite";
  sample::MakeSampleJob(job, {.rows = state.range(0)});
  const auto make = [&](const std::string& options, const std::string& path) {
    RunCommand(Exporter() + options + " --base " + (folder / "set") + " " + path);
  };
  make(" --kind all", job);
  const double peak = PeakOfChildren();
  const auto oneByOne = [&] {
    for (const auto& kind : exports::kExportKinds) {
      make(" --threads 1 --kind " + std::string(kind.name), job);
    }
  };
  SideBySide(state,
             {{"floor", oneByOne},
              {"one", [&] { make(" --threads 1 --kind all", job); }},
              {"all", [&] { make(" --kind all", job); }}},
             [&] { folder.KeepOnly(".sqlite"); });
  state.counters["peak_MiB"] = peak;
}
BENCHMARK(AllKinds)->Name("kestrin-export, four kinds")->Apply(Sizes);

void ManyJobs(benchmark::State& state) {
  constexpr int kJobs = 16;
  const ScratchFolder folder;
  std::string jobs;
  for (int i = 0; i < kJobs; ++i) {
    const std::string path = folder / "job" + std::to_string(i) + ".sqlite";
    sample::MakeSampleJob(path,
                          {.rows = state.range(0) / kJobs, .seed = 1U + static_cast<unsigned>(i)});
    jobs += " " + path;
  }
  const std::string command = Exporter() + " --out " + (folder / "sets");
  const auto all = [&](unsigned count) {
    return [=] { RunCommand(command + " --jobs " + std::to_string(count) + jobs); };
  };
  const std::string oneThread = KnowsThreads() ? " --threads 1" : "";
  SideBySide(state,
             {{"floor", [&] { RunCommand(command + oneThread + jobs); }},
              {"all", all(std::thread::hardware_concurrency())}},
             [&] { folder.KeepOnly(".sqlite"); });
}
BENCHMARK(ManyJobs)->Name("kestrin-export, 16 jobs")->Apply(Sizes);

}  // namespace
}  // namespace kestrin::bench

BENCHMARK_MAIN();
