#include "preview/pointPreview.h"

#include "preview/drawJob.h"

namespace kestrin::preview {
namespace {

constexpr std::int32_t kRadius = 3;

class PointPainter {
 public:
  using Epochs = jobstore::PreviewPointEpochs;

  PointPainter(jobstore::Job&, const PictureMap& map, Picture& picture)
      : map_(map), picture_(picture) {}

  bool Ready() const { return true; }

  void Add(const Epochs::Row&, geo::UtmPoint vehicle) {
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

void DrawPointPreview(const PreviewState& state, Picture& picture, base::RunHost& host) {
  DrawJob<PointPainter>(state, picture, host);
}

}  // namespace kestrin::preview
