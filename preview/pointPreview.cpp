#include "preview/pointPreview.h"

#include "preview/drawJob.h"

namespace kestrin {
namespace {

constexpr std::int32_t kRadius = 3;

class PointPainter {
 public:
  using Epochs = PreviewPointEpochs;

  PointPainter(Job&, const PictureMap& map, Picture& picture) : map_(map), picture_(picture) {}

  bool Ready() const { return true; }

  void Add(const EpochRow&, UtmPoint vehicle) {
    const GroundPoint ground{vehicle.easting, vehicle.northing};
    if (!map_.Covers(ground)) return;
    if (const auto point = map_.At(ground)) picture_.Circle(*point, kRadius);
  }

  void Finish() {}

 private:
  PictureMap map_;
  Picture& picture_;
};

}  // namespace

void DrawPointPreview(const PreviewState& state, Picture& picture, RunHost& host) {
  DrawJob<PointPainter>(state, picture, host);
}

}  // namespace kestrin
