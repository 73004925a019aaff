#pragma once

#include "base/runHost.h"
#include "geo/epochWalk.h"
#include "geo/localOffsets.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "preview/picture.h"
#include "preview/pictureMap.h"
#include "preview/previewState.h"

namespace kestrin::preview {

/// The walk that all previews have in common: clears the picture, then hands a
/// painter every GPS row of the job with the vehicle's position, and refreshes.
///
/// A Painter names its query as Epochs, is made of (Job&, const PictureMap&,
/// Picture&), and has Ready() (whether what it reads of the job is there),
/// Add(const Epochs::Row&, UtmPoint) and Finish().
template <class Painter>
void DrawJob(const PreviewState& state, Picture& picture, base::RunHost& host) {
  if (state.jobPath.empty()) return;
  picture.RemovePicture();
  picture.Clear();
  if (!HasArea(picture)) return;
  {
    jobstore::Job job(state.jobPath, host);
    if (!job.IsOpen()) return;
    geo::LocalOffsets<jobstore::References> offsets(job);
    if (!offsets.HasReference()) return;
    Painter painter(job, PictureMap(state.extent, picture), picture);
    jobstore::Query<typename Painter::Epochs> epochs(job);
    if (!painter.Ready() || !epochs.Prepared()) return;
    geo::WalkEpochs(epochs, offsets, host,
                    [&](const auto& epoch, geo::UtmPoint vehicle) { painter.Add(epoch, vehicle); });
    painter.Finish();
  }
  picture.Refresh();
}

}  // namespace kestrin::preview
