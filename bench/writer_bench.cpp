#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

#include "base/fileSystem.h"
#include "bench/sideBySide.h"
#include "shapefile/numberText.h"
#include "shapefile/shapefileSet.h"

/// The set writer against the same bytes written plainly, and the texts of numbers
/// against the C library's.

namespace kestrin::bench {
namespace {

double Degrees(std::int64_t i) { return -93.5 + static_cast<double>(i % 100'003) * 1.1e-6; }

/// Point records with a row of 14 numbers: about what the point export writes.
void WritePoints(base::FileSystem& files, const std::string& base, std::int64_t rows) {
  static const std::vector<shapefile::Field> kFields(14, shapefile::Field{"F", 'N', 10, 2});
  shapefile::ShapefileSet set(files, base, shapefile::ShapeType::kPoint, kFields, {});
  shapefile::AttributeRecord record(kFields);
  for (std::int64_t i = 0; i < rows; ++i) {
    const double value = Degrees(i);
    record.Clear();
    for (int field = 0; field < 14; ++field) {
      record.Add(shapefile::RoundedText(value * (field + 1), 2).View(), shapefile::Keep::kRight);
    }
    set.AddPoint({value, -value}, record.Bytes());
  }
  set.Commit();
}

/// Polylines of 500 vertices, `rows` vertices in all: about what the wire export writes.
void WriteLines(base::FileSystem& files, const std::string& base, std::int64_t rows) {
  static const std::array<shapefile::Field, 2> kFields{{{"ID", 'N', 8, 0}, {"METERS", 'N', 10, 2}}};
  shapefile::ShapefileSet set(files, base, shapefile::ShapeType::kPolyline, kFields, {});
  shapefile::AttributeRecord record(kFields);
  for (std::int64_t i = 0; i < rows; i += 500) {
    set.BeginRecord();
    for (std::int64_t j = i; j < std::min(rows, i + 500); ++j) set.AddVertex({Degrees(j), 45});
    record.Clear();
    record.Add(shapefile::IntegerText(set.RecordCount()).View(), shapefile::Keep::kRight);
    record.Add(shapefile::RoundedText(Degrees(i), 2).View(), shapefile::Keep::kLeft);
    set.EndRecord(record.Bytes());
  }
  set.Commit();
}

using Writer = void (*)(base::FileSystem&, const std::string&, std::int64_t);

void Writing(benchmark::State& state, Writer write) {
  const ScratchFolder folder;
  const std::string base = folder / "set";
  const auto files = base::NativeFileSystem();
  const auto ours = [&] { write(*files, base, state.range(0)); };
  const double peak = PeakOf(ours);
  const auto sizes = SizesOfSet(base);
  SideBySide(state, {{"floor", [&] { WriteSetPlainly(sizes, folder / "plain"); }}, {"one", ours}},
             [&] { folder.KeepOnly("."); });
  state.counters["peak_MiB"] = peak;
}
BENCHMARK_CAPTURE(Writing, points, WritePoints)->Name("part: writing points")->Apply(Sizes);
BENCHMARK_CAPTURE(Writing, lines, WriteLines)->Name("part: writing lines")->Apply(Sizes);

void Shortest(benchmark::State& state) {
  for (std::int64_t i = 0; auto iteration : state) {
    benchmark::DoNotOptimize(shapefile::ShortestText(Degrees(++i)).View().size());
  }
}
BENCHMARK(Shortest);

template <int decimals>
void Rounded(benchmark::State& state) {
  for (std::int64_t i = 0; auto iteration : state) {
    benchmark::DoNotOptimize(shapefile::RoundedText(Degrees(++i), decimals).View().size());
  }
}
BENCHMARK(Rounded<2>);
BENCHMARK(Rounded<8>);

void CLibrary(benchmark::State& state) {
  std::array<char, 32> text{};
  for (std::int64_t i = 0; auto iteration : state) {
    benchmark::DoNotOptimize(
        std::snprintf(text.data(), text.size(), "%.15G", shapefile::RoundTo(Degrees(++i), 2)));
  }
}
BENCHMARK(CLibrary);

}  // namespace
}  // namespace kestrin::bench

BENCHMARK_MAIN();
