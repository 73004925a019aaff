#include <benchmark/benchmark.h>
#include <proj.h>

#include <vector>

#include "geo/modProj4.h"
#include "geo/utmProjection.h"

/// What a conversion costs beside PROJ's own part of it: proj_trans alone is the floor.

namespace kestrin {
namespace {

constexpr std::int16_t kZone = 14;
constexpr double kLatitude = 40.1;
constexpr double kLongitude = -97.5;
constexpr double kNorthing = 4439000;
constexpr double kEasting = 627000;
constexpr double kRadians = 0.0174532925199433;
constexpr double kDegrees = 57.2957795130823;

/// Points of a field, so that no result can be foretold.
double Metres(std::size_t i) { return static_cast<double>(i % 1024); }

/// Has a point stand in memory, where a caller of the program's own has it.
void Seen(double& x, double& y) {
  benchmark::DoNotOptimize(&x);
  benchmark::DoNotOptimize(&y);
  benchmark::ClobberMemory();
}

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

  PJ* Operation() const { return operation_; }

 private:
  PJ_CONTEXT* context_;
  PJ* operation_;
};

void ProjTransInverse(benchmark::State& state) {
  const Projection projection;
  std::size_t i = 0;
  for (auto _ : state) {
    double y = kNorthing;
    double x = kEasting + Metres(++i);
    Seen(x, y);
    const PJ_COORD point = proj_trans(projection.Operation(), PJ_INV, proj_coord(x, y, 0, 0));
    x = point.xy.x * kDegrees;
    y = point.xy.y * kDegrees;
    Seen(x, y);
  }
}
BENCHMARK(ProjTransInverse);

/// A conversion as exports and previews make it.
void HeldToGeo(benchmark::State& state) {
  const geo::UtmProjection projection(kZone);
  std::size_t i = 0;
  for (auto _ : state) {
    double y = kNorthing;
    double x = kEasting + Metres(++i);
    Seen(x, y);
    const geo::GeoPoint point = projection.ToGeo({x, y});
    x = point.longitude;
    y = point.latitude;
    Seen(x, y);
  }
}
BENCHMARK(HeldToGeo);

/// A thousand at a time.
void HeldToGeoRange(benchmark::State& state) {
  const geo::UtmProjection projection(kZone);
  std::vector<geo::UtmPoint> from;
  for (std::size_t i = 0; i < 1000; ++i) from.push_back({kEasting + Metres(i), kNorthing});
  std::vector<geo::GeoPoint> to(from.size());
  for (auto _ : state) {
    projection.ToGeo(from, to);
    benchmark::DoNotOptimize(to.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(HeldToGeoRange);

void ProjTransForward(benchmark::State& state) {
  const Projection projection;
  std::size_t i = 0;
  for (auto _ : state) {
    double y = kLatitude;
    double x = kLongitude + Metres(++i) * 1e-5;
    Seen(x, y);
    const PJ_COORD point =
        proj_trans(projection.Operation(), PJ_FWD, proj_coord(x * kRadians, y * kRadians, 0, 0));
    x = point.xy.x;
    y = point.xy.y;
    Seen(x, y);
  }
}
BENCHMARK(ProjTransForward);

void HeldToUtm(benchmark::State& state) {
  const geo::UtmProjection projection(kZone);
  std::size_t i = 0;
  for (auto _ : state) {
    double y = kLatitude;
    double x = kLongitude + Metres(++i) * 1e-5;
    Seen(x, y);
    const geo::UtmPoint point = projection.ToUtm({x, y});
    x = point.easting;
    y = point.northing;
    Seen(x, y);
  }
}
BENCHMARK(HeldToUtm);

/// One conversion on its own, which makes and frees its handles.
void UtmToGeoPoint(benchmark::State& state) {
  std::size_t i = 0;
  for (auto _ : state) {
    double y = kNorthing;
    double x = kEasting + Metres(++i);
    benchmark::DoNotOptimize(geo::UtmToGeo(y, x, kZone));
    Seen(x, y);
  }
}
BENCHMARK(UtmToGeoPoint);

}  // namespace
}  // namespace kestrin

BENCHMARK_MAIN();
