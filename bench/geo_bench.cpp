#include <benchmark/benchmark.h>
#include <proj.h>

#include <array>

#include "geo/modProj4.h"
#include "geo/proj_api.h"

/// What a conversion costs beside PROJ's own part of it: proj_trans alone is the
/// floor, the handle work alone what is laid on top of it.

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

void UtmToGeoPoint(benchmark::State& state) {
  std::size_t i = 0;
  for (auto _ : state) {
    double y = kNorthing;
    double x = kEasting + Metres(++i);
    benchmark::DoNotOptimize(kestrin::geo::UtmToGeo(y, x, kZone));
    Seen(x, y);
  }
}
BENCHMARK(UtmToGeoPoint);

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

void GeoToUtmPoint(benchmark::State& state) {
  std::size_t i = 0;
  for (auto _ : state) {
    double y = kLatitude;
    double x = kLongitude + Metres(++i) * 1e-5;
    benchmark::DoNotOptimize(kestrin::geo::GeoToUtm(y, x, kZone));
    Seen(x, y);
  }
}
BENCHMARK(GeoToUtmPoint);

/// The points of a call share its handles: near proj_trans itself.
void TransformThousandPoints(benchmark::State& state) {
  const std::int32_t utm = kestrin::geo::pjInitPlus("+proj=utm +zone=14 +datum=NAD83 +nodefs");
  const std::int32_t geographic = kestrin::geo::pjInitPlus("+proj=latlong +datum=NAD83");
  std::array<double, 1000> x;
  std::array<double, 1000> y;
  std::array<double, 1000> z{};
  for (auto _ : state) {
    for (std::size_t i = 0; i < x.size(); ++i) x[i] = kEasting + Metres(i);
    y.fill(kNorthing);
    benchmark::DoNotOptimize(
        kestrin::geo::pjTransform(utm, geographic, 1000, 1, x.data(), y.data(), z.data()));
  }
  kestrin::geo::pjFree(geographic);
  kestrin::geo::pjFree(utm);
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(TransformThousandPoints);

/// All of a conversion but the conversion: two handles made, a transformation of no
/// point, two handles freed.
void HandlesOfOneConversion(benchmark::State& state) {
  for (auto _ : state) {
    const std::int32_t utm = kestrin::geo::pjInitPlus("+proj=utm +zone=14 +datum=NAD83 +nodefs");
    const std::int32_t geographic = kestrin::geo::pjInitPlus("+proj=latlong +datum=NAD83");
    benchmark::DoNotOptimize(
        kestrin::geo::pjTransform(utm, geographic, 0, 1, nullptr, nullptr, nullptr));
    kestrin::geo::pjFree(geographic);
    kestrin::geo::pjFree(utm);
  }
}
BENCHMARK(HandlesOfOneConversion);

}  // namespace
}  // namespace kestrin

BENCHMARK_MAIN();
