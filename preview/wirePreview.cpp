#include <vector>

#include "preview/drawJob.h"

namespace kestrin::preview {
namespace {

class WirePainter : public Painter {
 public:
  using Epochs = jobstore::PreviewWireEpochs;

  WirePainter(jobstore::Job&, const Painter& painter) : Painter(painter) {}

  void Add(const Epochs::Row& epoch, geo::UtmPoint vehicle) {
    // A row without a place in the picture adds no point but still parts the path.
    if (epoch.BeginsStretch()) Finish();
    if (const auto point = map.At(vehicle)) points_.push_back(*point);
  }

  void Finish() {
    if (points_.size() >= 2) picture.Polyline(points_, colours.line);
    points_.clear();
  }

 private:
  std::vector<PicturePoint> points_;
};

}  // namespace

void DrawWirePreview(const PreviewState& state, Colours colours, Picture& picture,
                     base::RunHost& host) {
  DrawJob<WirePainter>(state, colours, picture, host);
}

}  // namespace kestrin::preview
