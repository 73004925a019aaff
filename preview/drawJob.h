#pragma once

#include "base/runHost.h"
#include "geo/epochWalk.h"
#include "geo/localOffsets.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "preview/pictureMap.h"
#include "preview/renderers.h"

namespace kestrin::preview {

/// What a painter draws on, and what one that reads no more of the job than its epochs need
/// not say.
struct Painter {
  const PictureMap map;
  const Colours colours;
  Picture& picture;

  bool Ready() const { return true; }
  void Finish() {}
};

/// The walk that all renderers have in common: clears the picture, then hands a painter
/// every GPS row of the job with the vehicle's position, and refreshes.
///
/// A P is a Painter that names its query as Epochs, is made of (Job&, const Painter&), and
/// has Ready() (whether what it reads of the job is there), Add(const Epochs::Row&, UtmPoint)
/// and Finish().
template <class P>
void DrawJob(const PreviewState& state, Colours colours, Picture& picture, base::RunHost& host) {
  if (state.jobPath.empty()) return;
  picture.Clear();
  if (!picture.HasArea()) return;
  {
    jobstore::Job job(state.jobPath, host);
    if (!job.IsOpen()) return;
    geo::LocalOffsets<jobstore::References> offsets(job);
    if (!offsets.HasReference()) return;
    P painter(job, {PictureMap(state.extent, picture), colours, picture});
    jobstore::Query<typename P::Epochs> epochs(job);
    if (!painter.Ready() || !epochs.Prepared()) return;
    geo::WalkEpochs(epochs, offsets, host,
                    [&](const auto& epoch, geo::UtmPoint vehicle) { painter.Add(epoch, vehicle); });
    painter.Finish();
  }
  picture.Refresh();
}

}  // namespace kestrin::preview
