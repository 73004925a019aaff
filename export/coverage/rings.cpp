#include "export/coverage/rings.h"

#include <memory>
#include <utility>

namespace kestrin::coverage {

RingMaker::RingMaker(const geo::WorkingPlane& plane, exports::ExportRun& run,
                     std::function<void(Ring)> sink)
    : rings_(
          run.crew,
          [&] {
            const auto yield = [&host = run.host] { host.Yield(); };
            // The host serves its own thread alone. What other threads are at ends with the run.
            const auto endWithRun = [this] {
              if (ends_) throw base::RunCancelled();
            };
            const bool alone = run.crew == nullptr || run.crew->Threads() == 1;
            return std::make_unique<PolygonRing>(plane.Zone(),
                                                 alone ? std::function<void()>(yield) : endWithRun);
          },
          [put = std::move(sink)](const PolygonRing& ring) { put(ring.Points()); }) {}

void RingMaker::Add(const PolygonBuilder::Edges& edges) {
  rings_.Filling().Draw(edges, saved_);
  rings_.Filled();
}

}  // namespace kestrin::coverage
