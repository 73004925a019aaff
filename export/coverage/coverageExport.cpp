#include "export/coverage/coverageExport.h"

#include "export/coverage/polygonBuilder.h"
#include "export/coverage/ringWriter.h"
#include "export/coverage/widths.h"
#include "export/tableRows.h"
#include "geo/epochWalk.h"
#include "geo/localOffsets.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "shapefile/numberText.h"

namespace kestrin::coverage {

exports::ExportOutcome ExportPolyShape(const std::string& basePath, const std::string& jobPath,
                                       exports::ExportRun& run) {
  exports::ExportOutcome outcome;
  shapefile::RemoveSet(run.files, basePath);
  jobstore::Job job(jobPath, run.host);
  if (!exports::IsOpenOrTold(job, run.host)) return outcome;
  geo::LocalOffsets<jobstore::References> offsets(job);
  exports::IsPreparedOrTold(offsets, run.host);
  if (!offsets.HasReference()) return exports::NothingIn(job);

  WidthTimeline widths = ReadWidths(job, run.host);
  jobstore::Query<jobstore::PolyEpochs> epochs(job);
  exports::IsPreparedOrTold(epochs, run.host);

  RingWriter writer(basePath, offsets.Plane(), run);
  RingMaker rings(offsets.Plane(), run, [&](Ring ring) { writer.Write(ring); });
  PolygonBuilder polygons([&](const PolygonBuilder::Edges& edges) {
    if (!basePath.empty()) rings.Add(edges);
  });
  const auto add = [&](const auto& epoch, geo::UtmPoint centre) {
    polygons.Add(SwathRow::Of(centre, epoch.yaw, widths.At(epoch.time)), epoch.BeginsStretch());
  };
  outcome.epochs = geo::WalkEpochs(epochs, offsets, run.host, add);
  outcome.lastStep = exports::EndOfReading(job, epochs);
  polygons.Finish();
  rings.Finish();
  outcome.made = writer.Finish();
  if (outcome.made) outcome.figures = {{"acres", shapefile::RoundTo(writer.Acres(), 2)}};
  return outcome;
}

}  // namespace kestrin::coverage
