#include "preview/wirePreview.h"

#include <optional>
#include <vector>

#include "preview/drawJob.h"

namespace kestrin::preview {
namespace {

class WirePainter {
 public:
  using Epochs = jobstore::PreviewWireEpochs;

  WirePainter(jobstore::Job&, const PictureMap& map, Picture& picture)
      : map_(map), picture_(picture) {}

  bool Ready() const { return true; }

  void Add(const Epochs::Row& epoch, geo::UtmPoint vehicle) {
    // A row without a place in the picture adds no point but still parts the path.
    if (epoch.BeginsStretch()) Finish();
    if (const auto point = map_.At({vehicle.easting, vehicle.northing})) points_.push_back(*point);
  }

  void Finish() {
    if (points_.size() >= 2) picture_.Polyline(points_);
    points_.clear();
  }

 private:
  PictureMap map_;
  Picture& picture_;
  std::vector<PicturePoint> points_;
};

}  // namespace

void DrawWirePreview(const PreviewState& state, Picture& picture, base::RunHost& host) {
  DrawJob<WirePainter>(state, picture, host);
}

}  // namespace kestrin::preview
