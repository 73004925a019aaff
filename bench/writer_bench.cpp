#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

#include "bench/measures.h"
#include "shapefile/numberText.h"
#include "shapefile/shapefileSet.h"

/// The set writer against the same bytes written plainly, and the texts of numbers
/// against the C library's.

namespace kestrin {
namespace {

using bench::PeakMemory;
using bench::ResetPeakMemory;
using bench::SecondsOf;

double Degrees(std::int64_t i) { return -93.5 + static_cast<double>(i % 100'003) * 1.1e-6; }

/// Point records with a row of 14 numbers: about what the point export writes.
void WritePoints(kestrin::base::FileSystem& files, const std::string& base, std::int64_t rows) {
  static const std::vector<kestrin::shapefile::Field> kFields(
      14, kestrin::shapefile::Field{"F", 'N', 10, 2});
  kestrin::shapefile::ShapefileSet set(files, base, kestrin::shapefile::ShapeType::kPoint, kFields,
                                       {});
  kestrin::shapefile::AttributeRecord record(kFields);
  for (std::int64_t i = 0; i < rows; ++i) {
    const double value = Degrees(i);
    record.Clear();
    for (int field = 0; field < 14; ++field) {
      record.Add(kestrin::shapefile::RoundedText(value * (field + 1), 2).View(),
                 kestrin::shapefile::Keep::kRight);
    }
    set.AddPoint({value, -value}, record.Bytes());
  }
  set.Commit();
}

/// Polylines of 500 vertices, `rows` vertices in all: about what the wire export writes.
void WriteLines(kestrin::base::FileSystem& files, const std::string& base, std::int64_t rows) {
  static const std::array<kestrin::shapefile::Field, 2> kFields{
      {{"ID", 'N', 8, 0}, {"METERS", 'N', 10, 2}}};
  kestrin::shapefile::ShapefileSet set(files, base, kestrin::shapefile::ShapeType::kPolyline,
                                       kFields, {});
  kestrin::shapefile::AttributeRecord record(kFields);
  for (std::int64_t i = 0; i < rows; i += 500) {
    set.BeginRecord();
    for (std::int64_t j = i; j < std::min(rows, i + 500); ++j) set.AddVertex({Degrees(j), 45});
    record.Clear();
    record.Add(kestrin::shapefile::IntegerText(set.RecordCount()).View(),
               kestrin::shapefile::Keep::kRight);
    record.Add(kestrin::shapefile::RoundedText(Degrees(i), 2).View(),
               kestrin::shapefile::Keep::kLeft);
    set.EndRecord(record.Bytes());
  }
  set.Commit();
}

/// Time of the writer; beside it the time of the plain writes, in seconds.
template <void (*write)(kestrin::base::FileSystem&, const std::string&, std::int64_t)>
void Write(benchmark::State& state) {
  const bench::ScratchFolder folder;
  const std::string base = folder / "set";
  const auto files = kestrin::base::NativeFileSystem();
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
    benchmark::DoNotOptimize(kestrin::shapefile::ShortestText(Degrees(++i)).View().size());
  }
}
BENCHMARK(Shortest);

template <int decimals>
void Rounded(benchmark::State& state) {
  for (std::int64_t i = 0; auto iteration : state) {
    benchmark::DoNotOptimize(kestrin::shapefile::RoundedText(Degrees(++i), decimals).View().size());
  }
}
BENCHMARK(Rounded<2>);
BENCHMARK(Rounded<8>);

void CLibrary(benchmark::State& state) {
  std::array<char, 32> text{};
  for (std::int64_t i = 0; auto iteration : state) {
    benchmark::DoNotOptimize(std::snprintf(text.data(), text.size(), "%.15G",
                                           kestrin::shapefile::RoundTo(Degrees(++i), 2)));
  }
}
BENCHMARK(CLibrary);

}  // namespace
}  // namespace kestrin

BENCHMARK_MAIN();
