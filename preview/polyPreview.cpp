#include <array>
#include <optional>

#include "preview/drawJob.h"
#include "preview/sections.h"

namespace kestrin::preview {
namespace {

/// The two ends of the swath at an epoch, in the picture.
struct SwathEnds {
  PicturePoint a;
  PicturePoint b;

  friend bool operator==(const SwathEnds&, const SwathEnds&) = default;
};

class PolyPainter : public Painter {
 public:
  using Epochs = jobstore::PreviewPolyEpochs;

  PolyPainter(jobstore::Job& job, const Painter& painter) : Painter(painter), implement_(job) {}

  bool Ready() const { return implement_.HasCurrent(); }

  void Add(const Epochs::Row& epoch, geo::UtmPoint vehicle) {
    implement_.AdvanceTo(
        epoch.time, [this](const jobstore::ImplementRow& row) { half_ = SwathWidth(row) / 2; });
    const std::optional<SwathEnds> ends = EndsAt(vehicle, geo::Heading(epoch.yaw));
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

  // No Finish: the last run stays without an end edge, only a break draws one.

 private:
  std::optional<SwathEnds> EndsAt(geo::UtmPoint vehicle, const geo::Heading& heading) const {
    const auto a = map.At(heading.RightOf(vehicle, half_));
    const auto b = map.At(heading.LeftOf(vehicle, half_));
    if (!a || !b) return std::nullopt;
    return SwathEnds{*a, *b};
  }

  void CloseRun() {
    if (runOpen_) picture.Line(previous_->a, previous_->b, colours.line);
    runOpen_ = false;
  }

  void DrawStep(const SwathEnds& from, const SwathEnds& to) {
    const std::array<PicturePoint, 4> corners{from.a, to.a, to.b, from.b};
    // In the fill's own colour its outline merges with it.
    picture.Polygon(corners, colours.fill, colours.fill);
    picture.Line(from.a, to.a, colours.line);
    picture.Line(from.b, to.b, colours.line);
    if (!runOpen_) picture.Line(from.a, from.b, colours.line);
    runOpen_ = true;
  }

  ImplementCursor implement_;
  /// Metres: half the swath.
  double half_ = SwathWidth(implement_.Current()) / 2;
  std::optional<SwathEnds> previous_;
  /// Only with a previous epoch.
  bool runOpen_ = false;
};

}  // namespace

void DrawPolyPreview(const PreviewState& state, Colours colours, Picture& picture,
                     base::RunHost& host) {
  DrawJob<PolyPainter>(state, colours, picture, host);
}

}  // namespace kestrin::preview
