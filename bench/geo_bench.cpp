#include <benchmark/benchmark.h>
#include <proj.h>

#include <cstddef>
#include <vector>

#include "base/angles.h"
#include "bench/measures.h"
#include "geo/modProj4.h"
#include "geo/utmProjection.h"

/// What a conversion costs beside PROJ's own part of it: the same points through proj_trans
/// alone, turn and turn about in one run, are the floor ("times_proj").

namespace kestrin::bench {
namespace {

constexpr std::int16_t kZone = 14;
constexpr std::size_t kPoints = 100'000;

/// PROJ by itself.
class Projection {
 public:
  Projection()
      : context_(proj_context_create()),
        operation_(proj_create(context_, "+proj=utm +zone=14 +ellps=GRS80 +algo=poder_engsager")) {}
  ~Projection() {
    proj_destroy(operation_);
    proj_context_destroy(context_);
  }
  Projection(const Projection&) = delete;
  Projection& operator=(const Projection&) = delete;

  geo::GeoPoint ToGeo(geo::UtmPoint point) const {
    const PJ_COORD result =
        proj_trans(operation_, PJ_INV, proj_coord(point.easting, point.northing, 0, 0));
    return {result.xy.x * base::kDegreesPerRadian, result.xy.y * base::kDegreesPerRadian};
  }
  geo::UtmPoint ToUtm(geo::GeoPoint point) const {
    const PJ_COORD result = proj_trans(operation_, PJ_FWD,
                                       proj_coord(point.longitude * base::kRadiansPerDegree,
                                                  point.latitude * base::kRadiansPerDegree, 0, 0));
    return {result.xy.x, result.xy.y};
  }

 private:
  PJ_CONTEXT* context_;
  PJ* operation_;
};

/// Points of a field, so that no result can be foretold.
std::vector<geo::UtmPoint> FieldInMetres() {
  std::vector<geo::UtmPoint> points;
  for (std::size_t i = 0; i < kPoints; ++i) {
    points.push_back({627000 + static_cast<double>(i % 1024), 4439000});
  }
  return points;
}
std::vector<geo::GeoPoint> FieldInDegrees() {
  std::vector<geo::GeoPoint> points;
  for (std::size_t i = 0; i < kPoints; ++i) {
    points.push_back({-97.5 + static_cast<double>(i % 1024) * 1e-5, 40.1});
  }
  return points;
}

/// Times `ours` against `floor`, both over all points of the field.
template <class Ours, class Floor>
void Compare(benchmark::State& state, Ours ours, Floor floor) {
  double oursSeconds = 0;
  double floorSeconds = 0;
  for ([[maybe_unused]] const auto iteration : state) {
    floorSeconds += SecondsOf(floor);
    oursSeconds += SecondsOf(ours);
  }
  state.counters["ns_a_point"] =
      oursSeconds / static_cast<double>(state.iterations()) / kPoints * 1e9;
  state.counters["times_proj"] = oursSeconds / floorSeconds;
}

template <class From, class To, class Convert>
void Each(const std::vector<From>& from, std::vector<To>& to, Convert convert) {
  for (std::size_t i = 0; i < from.size(); ++i) to[i] = convert(from[i]);
  benchmark::DoNotOptimize(to.data());
  benchmark::ClobberMemory();
}

void ToGeo(benchmark::State& state) {
  const Projection proj;
  const geo::UtmProjection held(kZone);
  const auto from = FieldInMetres();
  std::vector<geo::GeoPoint> to(kPoints);
  Compare(
      state, [&] { Each(from, to, [&](geo::UtmPoint point) { return held.ToGeo(point); }); },
      [&] { Each(from, to, [&](geo::UtmPoint point) { return proj.ToGeo(point); }); });
}
BENCHMARK(ToGeo)->Iterations(40);

void ToGeoRange(benchmark::State& state) {
  const Projection proj;
  const geo::UtmProjection held(kZone);
  const auto from = FieldInMetres();
  std::vector<geo::GeoPoint> to(kPoints);
  Compare(
      state,
      [&] {
        held.ToGeo(from, to);
        benchmark::ClobberMemory();
      },
      [&] { Each(from, to, [&](geo::UtmPoint point) { return proj.ToGeo(point); }); });
}
BENCHMARK(ToGeoRange)->Iterations(40);

void ToUtm(benchmark::State& state) {
  const Projection proj;
  const geo::UtmProjection held(kZone);
  const auto from = FieldInDegrees();
  std::vector<geo::UtmPoint> to(kPoints);
  Compare(
      state, [&] { Each(from, to, [&](geo::GeoPoint point) { return held.ToUtm(point); }); },
      [&] { Each(from, to, [&](geo::GeoPoint point) { return proj.ToUtm(point); }); });
}
BENCHMARK(ToUtm)->Iterations(40);

/// One conversion on its own, which makes and frees its handles.
void UtmToGeoPoint(benchmark::State& state) {
  for ([[maybe_unused]] const auto iteration : state) {
    double y = 4439000;
    double x = 627000;
    benchmark::DoNotOptimize(geo::UtmToGeo(y, x, kZone));
    benchmark::DoNotOptimize(x);
  }
}
BENCHMARK(UtmToGeoPoint);

}  // namespace
}  // namespace kestrin::bench

BENCHMARK_MAIN();
