#include "export/ground/sweptGround.h"

#include <algorithm>

namespace kestrin::ground {
namespace {

/// Adds what the line around rows winds about.
void AddWoundAbout(std::vector<Geos::Area>& areas, Geos& geos, std::span<const Boom> booms,
                   bool backward) {
  Line line = LineAround(booms);
  if (backward) std::ranges::reverse(line);
  if (Geos::Area inside = geos.WoundAbout(line)) {
    areas.push_back(std::move(inside));
    return;
  }
  for (std::size_t i = 0; i + 1 < booms.size(); ++i) {
    const Strip strip(booms[i], booms[i + 1]);
    for (const Patch& patch : strip.Patches()) areas.push_back(geos.Inside(patch.Line()));
  }
}

/// The library's costs grow faster than the rows of a call.
constexpr std::size_t kTogether = 2048;

}  // namespace

Geos::Area SweptGround(Geos& geos, std::span<const Boom> booms, const Sweep& sweep,
                       double mayBeWrong, base::LoopYield& yield) {
  std::vector<Geos::Area> hidden;
  if (sweep.hiddenGround > mayBeWrong) {
    for (const Patch& patch : sweep.hidden) hidden.push_back(geos.Inside(patch.Line()));
  }
  std::vector<Geos::Area> areas;
  for (std::size_t first = 0; first + 1 < booms.size(); first += kTogether) {
    yield.Now();
    const auto some = booms.subspan(first, std::min(kTogether + 1, booms.size() - first));
    AddWoundAbout(areas, geos, some, sweep.isBackward);
  }
  // Small ones first: what is large is costly each time.
  if (!hidden.empty()) areas.push_back(geos.Union(std::move(hidden)));
  return areas.size() == 1 ? std::move(areas.front()) : geos.Union(std::move(areas));
}

}  // namespace kestrin::ground
