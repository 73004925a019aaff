#include <benchmark/benchmark.h>
#include <proj.h>

#include <cstddef>
#include <vector>

#include "base/angles.h"
#include "bench/sideBySide.h"
#include "geo/modProj4.h"
#include "geo/utmProjection.h"

/// What a conversion costs beside PROJ's own part of it: the same points through proj_trans alone.

namespace kestrin::bench {
namespace {

constexpr std::int16_t kZone = 14;

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
std::vector<geo::UtmPoint> FieldInMetres(std::int64_t count) {
  std::vector<geo::UtmPoint> points;
  for (std::int64_t i = 0; i < count; ++i) {
    points.push_back({627000 + static_cast<double>(i % 1024), 4439000});
  }
  return points;
}
std::vector<geo::GeoPoint> FieldInDegrees(std::int64_t count) {
  std::vector<geo::GeoPoint> points;
  for (std::int64_t i = 0; i < count; ++i) {
    points.push_back({-97.5 + static_cast<double>(i % 1024) * 1e-5, 40.1});
  }
  return points;
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
  const auto from = FieldInMetres(state.range(0));
  std::vector<geo::GeoPoint> to(from.size());
  SideBySide(state,
             {{"floor", [&] { Each(from, to, [&](geo::UtmPoint at) { return proj.ToGeo(at); }); }},
              {"one", [&] { Each(from, to, [&](geo::UtmPoint at) { return held.ToGeo(at); }); }}});
}
BENCHMARK(ToGeo)->Name("part: to degrees")->Apply(Sizes);

void ToGeoRange(benchmark::State& state) {
  const Projection proj;
  const geo::UtmProjection held(kZone);
  const auto from = FieldInMetres(state.range(0));
  std::vector<geo::GeoPoint> to(from.size());
  SideBySide(state,
             {{"floor", [&] { Each(from, to, [&](geo::UtmPoint at) { return proj.ToGeo(at); }); }},
              {"one", [&] { held.ToGeo(from, to); }}});
}
BENCHMARK(ToGeoRange)->Name("part: to degrees, at once")->Apply(Sizes);

void ToUtm(benchmark::State& state) {
  const Projection proj;
  const geo::UtmProjection held(kZone);
  const auto from = FieldInDegrees(state.range(0));
  std::vector<geo::UtmPoint> to(from.size());
  SideBySide(state,
             {{"floor", [&] { Each(from, to, [&](geo::GeoPoint at) { return proj.ToUtm(at); }); }},
              {"one", [&] { Each(from, to, [&](geo::GeoPoint at) { return held.ToUtm(at); }); }}});
}
BENCHMARK(ToUtm)->Name("part: to metres")->Apply(Sizes);

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
