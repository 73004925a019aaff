#include <array>
#include <optional>

#include "preview/drawJob.h"
#include "preview/sections.h"

namespace kestrin::preview {
namespace {

class BoomPainter : public Painter {
 public:
  using Epochs = jobstore::PreviewBoomEpochs;

  BoomPainter(jobstore::Job& job, const Painter& painter) : Painter(painter), implement_(job) {}

  bool Ready() const { return implement_.HasCurrent(); }

  void Add(const Epochs::Row& epoch, geo::UtmPoint vehicle) {
    implement_.AdvanceTo(epoch.time);
    ForEachSection(implement_.Current(), vehicle, epoch.yaw,
                   [this](geo::UtmPoint right, geo::UtmPoint left) { Draw(right, left); });
  }

  void Finish() {
    if (last_) picture.Polyline(*last_, colours.line);
  }

 private:
  void Draw(geo::UtmPoint right, geo::UtmPoint left) {
    const auto from = map.At(right);
    const auto to = map.At(left);
    if (!from || !to) return;
    // Number by number: copied whole, a point waits until both of its halves have been stored,
    // and that took longer than all else that is done for a section.
    const PicturePoint start{from->x, from->y};
    const PicturePoint end{to->x, to->y};
    picture.Line(start, end, colours.line);
    last_ = {start, end};
  }

  ImplementCursor implement_;
  std::optional<std::array<PicturePoint, 2>> last_;
};

}  // namespace

void DrawBoomPreview(const PreviewState& state, Colours colours, Picture& picture,
                     base::RunHost& host) {
  DrawJob<BoomPainter>(state, colours, picture, host);
}

}  // namespace kestrin::preview
