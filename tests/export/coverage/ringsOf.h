#pragma once

#include <vector>

#include "export/coverage/rings.h"
#include "tests/export/coverage/literalCoverage.h"
#include "tests/support/recordingHost.h"

namespace kestrin::test {

/// The zone the rings of rows lie in.
inline constexpr std::int16_t kRingZone = 14;

/// A ring in both frames.
struct MadeRing {
  ground::Line metres;
  std::vector<geo::GeoPoint> degrees;
  double acres = 0;
};

/// The rings made of rows, as they are handed to the writer.
inline std::vector<MadeRing> RingsOf(const std::vector<LiteralRow>& rows,
                                     base::Crew* crew = nullptr) {
  const geo::WorkingPlane plane({{}, 45, -99});
  RecordingHost host;
  const auto files = base::NativeFileSystem();
  exports::ExportRun run{.host = host, .files = *files, .options = {}, .crew = crew};
  std::vector<MadeRing> rings;
  coverage::RingMaker maker(plane, run, [&](coverage::Ring ring) {
    MadeRing& made = rings.emplace_back();
    made.metres.assign(ring.begin(), ring.end());
    made.acres = coverage::AcresIn(ring);
    for (const geo::UtmPoint& point : ring) {
      const geo::GeoPoint degrees = plane.ToGeo(point);
      if (made.degrees.empty() || made.degrees.back() != degrees) made.degrees.push_back(degrees);
    }
  });
  coverage::PolygonBuilder builder(
      [&](const coverage::PolygonBuilder::Edges& edges) { maker.Add(edges); });
  for (const auto& [row, begins] : rows) builder.Add(row, begins);
  builder.Finish();
  maker.Finish();
  return rings;
}

}  // namespace kestrin::test
