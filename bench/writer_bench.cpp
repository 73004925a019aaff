#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

#include "bench/measures.h"
#include "export/numberText.h"
#include "export/shapefileSet.h"

/// The set writer against the same bytes written plainly, and the texts of numbers
/// against the C library's.

namespace kestrin {
namespace {

using bench::PeakMemory;
using bench::ResetPeakMemory;
using bench::SecondsOf;

double Degrees(std::int64_t i) { return -93.5 + static_cast<double>(i % 100'003) * 1.1e-6; }

/// Point records with a row of 14 numbers: about what the point export writes.
void WritePoints(FileSystem& files, const std::string& base, std::int64_t rows) {
  static const std::vector<Field> kFields(14, Field{"F", 'N', 10, 2});
  ShapefileSet set(files, base, ShapeType::kPoint, kFields, {});
  AttributeRecord record(kFields);
  for (std::int64_t i = 0; i < rows; ++i) {
    const double value = Degrees(i);
    set.AddPoint(value, -value);
    record.Clear();
    for (int field = 0; field < 14; ++field) {
      record.Add(RoundedText(value * (field + 1), 2).View(), Keep::kRight);
    }
    set.AddAttributes(record.Bytes());
  }
  set.Commit();
}

/// Polylines of 500 vertices, `rows` vertices in all: about what the wire export writes.
void WriteLines(FileSystem& files, const std::string& base, std::int64_t rows) {
  static const std::array<Field, 2> kFields{{{"ID", 'N', 8, 0}, {"METERS", 'N', 10, 2}}};
  ShapefileSet set(files, base, ShapeType::kPolyline, kFields, {});
  AttributeRecord record(kFields);
  for (std::int64_t i = 0; i < rows; i += 500) {
    set.BeginRecord();
    for (std::int64_t j = i; j < std::min(rows, i + 500); ++j) set.AddVertex(Degrees(j), 45);
    set.EndRecord();
    record.Clear();
    record.Add(IntegerText(set.RecordCount() - 1).View(), Keep::kRight);
    record.Add(RoundedText(Degrees(i), 2).View(), Keep::kLeft);
    set.AddAttributes(record.Bytes());
  }
  set.Commit();
}

/// Time of the writer; beside it the time of the plain writes, in seconds.
template <void (*write)(FileSystem&, const std::string&, std::int64_t)>
void Write(benchmark::State& state) {
  const bench::ScratchFolder folder;
  const std::string base = folder / "set";
  const auto files = NativeFileSystem();
  double plain = 0;
  double writer = 0;
  double peak = 0;
  for (auto iteration : state) {
    ResetPeakMemory();
    const double before = PeakMemory();
    const double seconds = SecondsOf([&] { write(*files, base, state.range(0)); });
    peak = PeakMemory() - before;
    state.SetIterationTime(seconds);
    writer += seconds;
    plain += SecondsOf([&] { bench::WriteSetPlainly(base, folder / "plain"); });
  }
  state.counters["plain_s"] = benchmark::Counter(plain, benchmark::Counter::kAvgIterations);
  state.counters["times_plain"] = writer / plain;
  state.counters["peak_MiB"] = peak;
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(Write<WritePoints>)
    ->Name("WritePoints")
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Write<WriteLines>)
    ->Name("WriteLines")
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void Shortest(benchmark::State& state) {
  for (std::int64_t i = 0; auto iteration : state) {
    benchmark::DoNotOptimize(ShortestText(Degrees(++i)).View().size());
  }
}
BENCHMARK(Shortest);

template <int decimals>
void Rounded(benchmark::State& state) {
  for (std::int64_t i = 0; auto iteration : state) {
    benchmark::DoNotOptimize(RoundedText(Degrees(++i), decimals).View().size());
  }
}
BENCHMARK(Rounded<2>);
BENCHMARK(Rounded<8>);

void CLibrary(benchmark::State& state) {
  std::array<char, 32> text{};
  for (std::int64_t i = 0; auto iteration : state) {
    benchmark::DoNotOptimize(
        std::snprintf(text.data(), text.size(), "%.15G", RoundTo(Degrees(++i), 2)));
  }
}
BENCHMARK(CLibrary);

}  // namespace
}  // namespace kestrin

BENCHMARK_MAIN();
