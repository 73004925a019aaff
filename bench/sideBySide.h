#pragma once

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "bench/measures.h"

/// What every line of the table (bench/table) is made of.

namespace kestrin::bench {

/// What is compared with others: "floor" is the least that the operation can take, on one
/// thread; "one" ours on one thread and "all" on all cores; "grown" the same as "all" over five
/// times the rows; "peer" another program's or library's, "dump" sqlite3's of the same rows.
struct Side {
  std::string name;
  std::function<void()> run;
  /// In the first round only: what takes so long that noise does not matter.
  bool once = false;
};

/// What a side took, round by round.
struct Costs {
  std::vector<double> seconds;
  std::vector<double> processorSeconds;
};

inline double MedianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Of all threads, and of child processes that have ended.
inline double ProcessorSeconds() {
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

/// Runs the sides one after another, round by round, so that a busy machine slows all alike.
/// Counters: of each side the medians of its seconds ("<name>_s") and of its processor seconds
/// ("<name>_cpu"). Before each run `clear` removes what others wrote, and the system's own writing
/// has ended: to free a large file takes some drives longer than to write it, and whoever
/// overwrites one would be charged with it.
inline void SideBySide(
    benchmark::State& state, const std::vector<Side>& sides,
    const std::function<void()>& clear = [] {}) {
  std::vector<Costs> costs(sides.size());
  for ([[maybe_unused]] auto round : state) {
    double whole = 0;
    for (std::size_t i = 0; i < sides.size(); ++i) {
      if (sides[i].once && !costs[i].seconds.empty()) continue;
      clear();
      sync();
      const double before = ProcessorSeconds();
      costs[i].seconds.push_back(SecondsOf(sides[i].run));
      costs[i].processorSeconds.push_back(ProcessorSeconds() - before);
      whole += costs[i].seconds.back();
    }
    state.SetIterationTime(whole);
  }
  for (std::size_t i = 0; i < sides.size(); ++i) {
    state.counters[sides[i].name + "_s"] = MedianOf(costs[i].seconds);
    state.counters[sides[i].name + "_cpu"] = MedianOf(costs[i].processorSeconds);
  }
}

/// MiB that an action takes at most above what was held before it. As the first thing a
/// benchmark does: memory that was freed and kept is given back before.
inline double PeakOf(const std::function<void()>& action) {
  malloc_trim(0);
  ResetPeakMemory();
  const double before = PeakMemory();
  action();
  return PeakMemory() - before;
}

/// Three rounds with so many rows.
template <std::int64_t rows>
void Size(benchmark::internal::Benchmark* bench) {
  bench->ArgName("rows")->Arg(rows);
  bench->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
}

/// With a million, and for a try with fewer: chosen by name.
inline void Sizes(benchmark::internal::Benchmark* bench) {
  bench->Apply(Size<100'000>)->Arg(1'000'000);
}

}  // namespace kestrin::bench
