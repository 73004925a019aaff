#pragma once

#include <vector>

#include "export/coverage/rings.h"
#include "tests/export/coverage/literalCoverage.h"
#include "tests/support/recordingHost.h"

namespace kestrin::test {

/// The zone the rings of rows lie in.
inline constexpr std::int16_t kRingZone = 14;

/// The rings made of rows, as they are handed to the writer.
inline std::vector<coverage::Ring> RingsOf(const std::vector<LiteralRow>& rows) {
  const geo::WorkingPlane plane({{}, 45, -99});
  RecordingHost host;
  coverage::RingMaker maker(plane, host);
  std::vector<coverage::Ring> rings;
  coverage::PolygonBuilder builder([&](const coverage::PolygonBuilder::Edges& edges) {
    coverage::Ring ring = maker.Of(edges);
    if (!ring.metres.empty()) rings.push_back(std::move(ring));
  });
  for (const auto& [row, begins] : rows) builder.Add(row, begins);
  builder.Finish();
  return rings;
}

}  // namespace kestrin::test
