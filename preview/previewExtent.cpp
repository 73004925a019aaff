#include "preview/previewExtent.h"

#include <utility>

#include "geo/epochWalk.h"
#include "geo/localOffsets.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "preview/sections.h"

namespace kestrin::preview {
namespace {

/// Takes in a point, but none that is no number. Nearly all of a job's points lie within the
/// bounds already, and left to itself the compiler calls this for up to 33 of them a row.
inline void Widen(geo::Box& bounds, geo::UtmPoint point) {
  if (!bounds.Holds(point) && point.IsFinite()) bounds.Widen(point);
}

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

/// Widens the ground to the picture's shape and sets the scale. Without an area there is
/// no scale, and nothing will be drawn.
PreviewExtent FitToPicture(geo::Box ground, const Picture& picture) {
  if (!picture.HasArea()) return {ground, 0};
  const double width = picture.Width();
  const double height = picture.Height();
  double scale = 0;
  if ((ground.yMax - ground.yMin) / height < (ground.xMax - ground.xMin) / width) {
    scale = FitAxis(ground.xMin, ground.xMax, width);
    CentreAxis(ground.yMin, ground.yMax, height, scale);
  } else {
    scale = FitAxis(ground.yMin, ground.yMax, height);
    CentreAxis(ground.xMin, ground.xMax, width, scale);
  }
  return {ground, scale};
}

geo::Box BoundsOf(jobstore::Job& job, geo::LocalOffsets<jobstore::References>& offsets,
                  base::RunHost& host) {
  geo::Box bounds;
  ImplementCursor implement(job);
  jobstore::Query<jobstore::PreviewBoomEpochs> epochs(job);
  geo::WalkEpochs(epochs, offsets, host, [&](const auto& epoch, geo::UtmPoint vehicle) {
    implement.AdvanceTo(epoch.time);
    Widen(bounds, vehicle);
    ForEachSection(implement.Current(), vehicle, epoch.yaw,
                   [&bounds](geo::UtmPoint right, geo::UtmPoint left) {
                     Widen(bounds, right);
                     Widen(bounds, left);
                   });
  });
  return bounds;
}

}  // namespace

void FindPreviewExtent(std::string jobPath, PreviewState& state, Picture& picture,
                       base::RunHost& host) {
  if (jobPath.empty()) return;
  state.jobPath.clear();
  picture.Clear();

  jobstore::Job job(jobPath, host);
  if (!job.IsOpen()) return;
  geo::LocalOffsets<jobstore::References> offsets(job);
  if (!offsets.HasReference()) return;
  const geo::Box ground = BoundsOf(job, offsets, host);
  if (!ground.IsEmpty()) state.extent = FitToPicture(ground, picture);
  state.jobPath = std::move(jobPath);
}

}  // namespace kestrin::preview
