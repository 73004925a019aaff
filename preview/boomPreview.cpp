#include <array>
#include <optional>
#include <span>

#include "jobstore/queries.h"
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
    std::size_t count = 0;
    ForEachSection(implement_.Current(), vehicle, epoch.yaw,
                   [&](geo::UtmPoint right, geo::UtmPoint left) {
                     Line& line = lines_[count];
                     if (map.Find(right, line[0]) && map.Find(left, line[1])) ++count;
                   });
    for (const auto& [from, to] : std::span(lines_).first(count)) {
      picture.Line(from, to, colours.line);
    }
    if (count > 0) last_ = lines_[count - 1];
  }

  void Finish() {
    if (last_) picture.Polyline(*last_, colours.line);
  }

 private:
  using Line = std::array<PicturePoint, 2>;

  ImplementCursor implement_;
  /// An epoch's, all known before the first is drawn: each call between two would have what they
  /// are made of fetched anew.
  std::array<Line, jobstore::kSectionSlots> lines_;
  std::optional<Line> last_;
};

}  // namespace

void DrawBoomPreview(const PreviewState& state, Colours colours, Picture& picture,
                     base::RunHost& host) {
  DrawJob<BoomPainter>(state, colours, picture, host);
}

}  // namespace kestrin::preview
