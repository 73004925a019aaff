#include "export/polyExport.h"

#include "export/polyBuilder.h"
#include "export/polyWidths.h"
#include "geo/localOffsets.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin {

ExportOutcome ExportPolyShape(const std::string& basePath, const std::string& jobPath,
                              ExportRun& run) {
  ExportOutcome outcome;
  RemoveSet(run.files, basePath);
  Job job(jobPath, run.host);
  if (!job.IsOpen()) {
    run.host.ShowMessage(NotOpenedText(job.Handle()));
    return outcome;
  }
  LocalOffsets<References> offsets(job);
  if (!offsets.Prepared()) run.host.ShowMessage(NotPreparedText(offsets.Handle()));
  if (!offsets.HasReference()) return outcome;

  std::int32_t handle = 0;
  WidthTimeline widths = ReadWidths(job, handle);
  if (handle < 0) run.host.ShowMessage(NotPreparedText(handle));

  Query<PolyEpochs> epochs(job);
  if (!epochs.Prepared()) run.host.ShowMessage(NotPreparedText(epochs.Handle()));

  RingWriter writer(basePath, offsets.Plane(), run);
  PolygonBuilder polygons([&](const Ring& ring) {
    if (!basePath.empty()) writer.Write(ring);
  });
  for (EpochRow epoch; epochs.Next(epoch);) {
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

}  // namespace kestrin
