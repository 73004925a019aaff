#include "preview/boomPreview.h"

#include <array>
#include <optional>

#include "preview/drawJob.h"
#include "preview/previewImplement.h"

namespace kestrin::preview {
namespace {

class BoomPainter {
 public:
  using Epochs = jobstore::PreviewBoomEpochs;

  BoomPainter(jobstore::Job& job, const PictureMap& map, Picture& picture)
      : implement_(job), map_(map), picture_(picture) {}

  bool Ready() const { return implement_.HasCurrent(); }

  void Add(const Epochs::Row& epoch, geo::UtmPoint vehicle) {
    implement_.AdvanceTo(epoch.time);
    implement_.ForEachSection(vehicle, epoch.yaw, [this](const GroundLine& line) { Draw(line); });
  }

  void Finish() {
    if (last_) picture_.Polyline(*last_);
  }

 private:
  void Draw(const GroundLine& line) {
    const auto from = map_.At(line.from);
    const auto to = map_.At(line.to);
    if (!from || !to) return;
    picture_.Line(*from, *to);
    last_ = {*from, *to};
  }

  PreviewImplement implement_;
  PictureMap map_;
  Picture& picture_;
  std::optional<std::array<PicturePoint, 2>> last_;
};

}  // namespace

void DrawBoomPreview(const PreviewState& state, Picture& picture, base::RunHost& host) {
  DrawJob<BoomPainter>(state, picture, host);
}

}  // namespace kestrin::preview
