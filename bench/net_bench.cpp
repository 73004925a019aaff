#include <geos_c.h>

#include "bench/geosUnion.h"
#include "export/net/netGround.h"
#include "tools/sample/sampleJob.h"

/// The ground really covered, and at a size where that ends in reasonable time beside GEOS, which
/// must come to the same ground.

namespace kestrin::bench {
namespace {

using ground::Geos;

/// The ground that the export writes, in metres.
Geos::Area NetGroundOf(const std::string& path, Geos& geos) {
  SilentHost host;
  jobstore::Job job(path);
  net::Setups setups = net::ReadSetups(job, host);
  net::Track track(setups, false);
  for (const Row& row : RowsOf(job)) track.Add(row.at, row.yaw, 0, row.on, row.begins);
  std::vector<Geos::Area> areas;
  for (const ground::Piece& piece : net::NetGround(track, host).pieces) {
    areas.push_back(geos.Inside(piece));
  }
  return geos.Union(std::move(areas));
}

void Net(benchmark::State& state, const char* profile) {
  const auto makeJob = [=](const std::string& path, std::int64_t rows) {
    sample::MakeSampleJob(path, {.profile = profile, .rows = rows});
  };
  MeasureExport(
      state,
      {exports::kNamedKinds.front(), makeJob, std::string(jobstore::BoomEpochs::Text()), {5, 6}});
}
BENCHMARK_CAPTURE(Net, Sprayer, "sprayer")->Name("net, sprayer")->Apply(Sizes);
BENCHMARK_CAPTURE(Net, Planter, "planter")->Name("net, planter")->Apply(Sizes);

void NetBesideGeos(benchmark::State& state, const char* profile) {
  const ScratchFolder folder;
  const std::string job = folder / "job.sqlite";
  sample::MakeSampleJob(job, {.profile = profile, .rows = state.range(0)});
  Geos geos;
  const Geos::Area all = BesideGeos(state, exports::kNamedKinds.front(), folder, geos);
  const Geos::Area ground = NetGroundOf(job, geos);
  const Geos::Area other = geos.Own(GEOSSymDifference_r(geos.Handle(), all.get(), ground.get()));
  state.counters["differing_percent"] = 100 * geos.SquareMetres(other) / geos.SquareMetres(all);
}
BENCHMARK_CAPTURE(NetBesideGeos, Sprayer, "sprayer")
    ->Name("net, sprayer, beside GEOS")
    ->Apply(Size<50'000>);
BENCHMARK_CAPTURE(NetBesideGeos, Planter, "planter")
    ->Name("net, planter, beside GEOS")
    ->Apply(Size<50'000>);

}  // namespace
}  // namespace kestrin::bench

BENCHMARK_MAIN();
