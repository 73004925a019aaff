#include "export/coverage/rings.h"

#include <memory>
#include <utility>

namespace kestrin::coverage {

RingMaker::RingMaker(const geo::WorkingPlane& plane, exports::ExportRun& run,
                     std::function<void(Ring)> sink)
    : rings_(
          run.crew,
          [&] {
            // The host serves its own thread alone. What a crew is at ends with the run.
            std::function<void()> yield = [&host = run.host] { host.Yield(); };
            if (run.crew != nullptr)
              yield = [this] {
                if (ends_) throw base::RunCancelled();
              };
            return std::make_unique<PolygonRing>(plane.Zone(), std::move(yield));
          },
          [put = std::move(sink)](const PolygonRing& ring) { put(ring.Points()); }) {}

void RingMaker::Add(const PolygonBuilder::Edges& edges) {
  rings_.Filling().Draw(edges, saved_);
  rings_.Filled();
}

}  // namespace kestrin::coverage
