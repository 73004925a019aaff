#include "export/polyExport.h"

#include "export/polyBuilder.h"
#include "export/polyWidths.h"
#include "geo/localOffsets.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin {
namespace {

void ShowNotPrepared(ExportRun& run, std::int32_t handle) {
  run.host.ShowMessage(kErrorCreatingStatement + std::to_string(handle));
}

}  // namespace

ExportOutcome ExportPolyShape(const std::string& basePath, const std::string& jobPath,
                              ExportRun& run) {
  ExportOutcome outcome;
  RemoveSet(run.files, basePath);
  Job job(jobPath, run.host);
  if (!job.IsOpen()) {
    run.host.ShowMessage(kErrorOpening + std::to_string(job.Handle()));
    return outcome;
  }
  LocalOffsets<References> offsets(job);
  if (!offsets.Prepared()) ShowNotPrepared(run, offsets.Handle());
  if (!offsets.HasReference()) return outcome;

  std::int32_t handle = 0;
  WidthTimeline widths = ReadWidths(job, handle);
  if (handle < 0) ShowNotPrepared(run, handle);

  Query<PolyEpochs> epochs(job);
  if (!epochs.Prepared()) ShowNotPrepared(run, epochs.Handle());

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
