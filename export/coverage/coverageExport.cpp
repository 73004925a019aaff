#include "export/coverage/coverageExport.h"

#include "export/coverage/polygonBuilder.h"
#include "export/coverage/widths.h"
#include "geo/localOffsets.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin::coverage {

exports::ExportOutcome ExportPolyShape(const std::string& basePath, const std::string& jobPath,
                                       exports::ExportRun& run) {
  exports::ExportOutcome outcome;
  shapefile::RemoveSet(run.files, basePath);
  jobstore::Job job(jobPath, run.host);
  if (!job.IsOpen()) {
    run.host.ShowMessage(exports::NotOpenedText(job.Handle()));
    return outcome;
  }
  geo::LocalOffsets<jobstore::References> offsets(job);
  if (!offsets.Prepared()) run.host.ShowMessage(exports::NotPreparedText(offsets.Handle()));
  if (!offsets.HasReference()) return outcome;

  std::int32_t handle = 0;
  WidthTimeline widths = ReadWidths(job, handle);
  if (handle < 0) run.host.ShowMessage(exports::NotPreparedText(handle));

  jobstore::Query<jobstore::PolyEpochs> epochs(job);
  if (!epochs.Prepared()) run.host.ShowMessage(exports::NotPreparedText(epochs.Handle()));

  RingWriter writer(basePath, offsets.Plane(), run);
  PolygonBuilder polygons([&](const Ring& ring) {
    if (!basePath.empty()) writer.Write(ring);
  });
  for (jobstore::EpochRow epoch; epochs.Next(epoch);) {
    run.host.CountRow();
    run.host.Yield();
    ++outcome.epochs;
    offsets.AdvanceTo(epoch.time);
    polygons.Add(SwathRow::Of(offsets.At(epoch), epoch.yaw, widths.At(epoch.time)),
                 epoch.BeginsStretch());
  }
  outcome.lastStep = epochs.LastStep();
  polygons.Finish();
  outcome.made = writer.Finish();
  return outcome;
}

}  // namespace kestrin::coverage
