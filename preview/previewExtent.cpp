#include "preview/previewExtent.h"

#include <utility>

#include "geo/epochWalk.h"
#include "geo/localOffsets.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "preview/pictureMap.h"
#include "preview/previewImplement.h"

namespace kestrin::preview {
namespace {

/// The bounds of the points taken in so far.
class Bounds {
 public:
  bool Empty() const { return empty_; }
  const PreviewExtent& Get() const { return extent_; }

  void Widen(GroundPoint point) {
    // Nearly all of a job's points; none that is no number.
    if (Holds(point) || !point.IsFinite()) return;
    if (empty_) {
      extent_ = {point.x, point.y, point.x, point.y, 0};
      empty_ = false;
      return;
    }
    if (point.x < extent_.xMin) extent_.xMin = point.x;
    if (point.x > extent_.xMax) extent_.xMax = point.x;
    if (point.y < extent_.yMin) extent_.yMin = point.y;
    if (point.y > extent_.yMax) extent_.yMax = point.y;
  }

 private:
  bool Holds(GroundPoint point) const {
    return !empty_ && extent_.xMin <= point.x && point.x <= extent_.xMax &&
           extent_.yMin <= point.y && point.y <= extent_.yMax;
  }

  PreviewExtent extent_;
  bool empty_ = true;
};

/// Fits an axis of the ground to `size` picture units with a margin of five at
/// either end, and returns the scale. The upper margin is reckoned with the lower
/// bound already moved and comes out a little larger: pictures have always lain so.
double FitAxis(double& low, double& high, double size) {
  low = low - 5 * (high - low) / size;
  high = high + 5 * (high - low) / size;
  return (high - low) / size;
}

/// Widens an axis to `size` picture units with the ground in the middle.
void CentreAxis(double& low, double& high, double size, double scale) {
  const double margin = (size * scale - (high - low)) / 2;
  low = low - margin;
  high = high + margin;
}

/// Widens the bounds to the picture's shape and sets the scale.
PreviewExtent FitToPicture(PreviewExtent extent, double width, double height) {
  const double scaleX = (extent.xMax - extent.xMin) / width;
  const double scaleY = (extent.yMax - extent.yMin) / height;
  if (scaleY < scaleX) {
    extent.scale = FitAxis(extent.xMin, extent.xMax, width);
    CentreAxis(extent.yMin, extent.yMax, height, extent.scale);
  } else {
    extent.scale = FitAxis(extent.yMin, extent.yMax, height);
    CentreAxis(extent.xMin, extent.xMax, width, extent.scale);
  }
  return extent;
}

Bounds BoundsOf(jobstore::Job& job, geo::LocalOffsets<jobstore::References>& offsets,
                base::RunHost& host) {
  Bounds bounds;
  PreviewImplement implement(job);
  jobstore::Query<jobstore::PreviewBoomEpochs> epochs(job);
  geo::WalkEpochs(epochs, offsets, host, [&](const auto& epoch, geo::UtmPoint vehicle) {
    implement.AdvanceTo(epoch.time);
    bounds.Widen({vehicle.easting, vehicle.northing});
    implement.ForEachSection(vehicle, epoch.yaw, [&bounds](const GroundLine& line) {
      bounds.Widen(line.from);
      bounds.Widen(line.to);
    });
  });
  return bounds;
}

}  // namespace

void FindPreviewExtent(const std::string& jobPath, PreviewState& state, Picture& picture,
                       base::RunHost& host) {
  if (jobPath.empty()) return;
  // The argument may be the state's own path.
  std::string path = jobPath;
  state.jobPath.clear();
  picture.RemovePicture();
  picture.Clear();

  jobstore::Job job(path, host);
  if (!job.IsOpen()) return;
  geo::LocalOffsets<jobstore::References> offsets(job);
  if (!offsets.HasReference()) return;
  const Bounds bounds = BoundsOf(job, offsets, host);
  if (!bounds.Empty()) {
    // Without an area there is no scale, and nothing will be drawn.
    state.extent = HasArea(picture) ? FitToPicture(bounds.Get(), picture.Width(), picture.Height())
                                    : bounds.Get();
  }
  state.jobPath = std::move(path);
}

}  // namespace kestrin::preview
