#include "preview/drawJob.h"

namespace kestrin::preview {
namespace {

class PointPainter : public Painter {
 public:
  using Epochs = jobstore::PreviewPointEpochs;

  PointPainter(jobstore::Job&, const Painter& painter) : Painter(painter) {}

  void Add(const Epochs::Row&, geo::UtmPoint vehicle) {
    constexpr std::int32_t kRadius = 3;
    if (!map.Covers(vehicle)) return;
    if (const auto point = map.At(vehicle)) picture.Circle(*point, kRadius, colours.line);
  }
};

}  // namespace

void DrawPointPreview(const PreviewState& state, Colours colours, Picture& picture,
                      base::RunHost& host) {
  DrawJob<PointPainter>(state, colours, picture, host);
}

}  // namespace kestrin::preview
