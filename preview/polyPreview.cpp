#include "preview/polyPreview.h"

#include <array>
#include <optional>

#include "preview/drawJob.h"
#include "preview/previewImplement.h"

namespace kestrin::preview {
namespace {

/// The two ends of the swath at an epoch, in the picture.
struct SwathEnds {
  PicturePoint a;
  PicturePoint b;

  friend bool operator==(const SwathEnds&, const SwathEnds&) = default;
};

class PolyPainter {
 public:
  using Epochs = jobstore::PreviewPolyEpochs;

  PolyPainter(jobstore::Job& job, const PictureMap& map, Picture& picture)
      : implement_(job),
        map_(map),
        picture_(picture),
        outline_(picture.ForeColor()),
        fill_(picture.FillColor()) {}

  bool Ready() const { return implement_.HasCurrent(); }

  void Add(const Epochs::Row& epoch, geo::UtmPoint vehicle) {
    implement_.AdvanceTo(epoch.time);
    const std::optional<SwathEnds> ends = EndsAt(vehicle, epoch.yaw);
    // Without movement to be seen a row counts for nothing, not even as a break.
    if (ends && ends == previous_) return;
    if (epoch.BeginsStretch()) {
      CloseRun();
      previous_ = ends;
    } else if (ends) {
      if (previous_) DrawStep(*previous_, *ends);
      previous_ = ends;
    }
  }

  /// The last run stays without an end edge: only a break draws one.
  void Finish() {}

 private:
  std::optional<SwathEnds> EndsAt(geo::UtmPoint vehicle, double yaw) const {
    const GroundLine line =
        Heading(yaw).Across({vehicle.easting, vehicle.northing}, implement_.Width());
    const auto a = map_.At(line.from);
    const auto b = map_.At(line.to);
    if (!a || !b) return std::nullopt;
    return SwathEnds{*a, *b};
  }

  void CloseRun() {
    if (runOpen_) picture_.Line(previous_->a, previous_->b);
    runOpen_ = false;
  }

  void DrawStep(const SwathEnds& from, const SwathEnds& to) {
    const std::array<PicturePoint, 4> corners{from.a, to.a, to.b, from.b};
    // In the fill's own colour its outline merges with it.
    picture_.SetForeColor(fill_);
    picture_.Polygon(corners);
    picture_.SetForeColor(outline_);
    picture_.Line(from.a, to.a);
    picture_.Line(from.b, to.b);
    if (!runOpen_) picture_.Line(from.a, from.b);
    runOpen_ = true;
  }

  PreviewImplement implement_;
  PictureMap map_;
  Picture& picture_;
  std::uint32_t outline_;
  std::uint32_t fill_;
  std::optional<SwathEnds> previous_;
  /// Only with a previous epoch.
  bool runOpen_ = false;
};

}  // namespace

void DrawPolyPreview(const PreviewState& state, Picture& picture, base::RunHost& host) {
  DrawJob<PolyPainter>(state, picture, host);
}

}  // namespace kestrin::preview
