#include "export/net/netExport.h"

#include <numeric>

#include "export/net/netGround.h"
#include "export/net/netSet.h"
#include "export/net/runs.h"
#include "export/net/setups.h"
#include "export/net/track.h"
#include "geo/epochWalk.h"
#include "geo/localOffsets.h"
#include "jobstore/epochs.h"
#include "jobstore/job.h"

namespace kestrin::net {
namespace {

std::string Count(std::int64_t count, const std::string& one, const std::string& many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

/// Of what was left out; empty when nothing was.
std::string InWords(const LeftOut& leftOut) {
  std::string words;
  if (leftOut.rows > 0) {
    words += ", " + Count(leftOut.rows, "row", "rows") + " without sound numbers";
  }
  if (leftOut.jumps > 0) {
    words += ", " + Count(leftOut.jumps, "jump", "jumps") + " of more than a kilometre";
  }
  return words.empty() ? words : "; left out: " + words.substr(2);
}

Totals Sum(const std::vector<NetPiece>& pieces, double gross) {
  Totals totals{0, gross};
  for (const NetPiece& piece : pieces) totals.net += piece.squareMetres;
  return totals;
}

}  // namespace

exports::ExportOutcome ExportNetShape(const std::string& basePath, const std::string& jobPath,
                                      exports::ExportRun& run) {
  exports::ExportOutcome outcome;
  shapefile::RemoveSet(run.files, basePath);
  jobstore::Job job(jobPath, run.host);
  if (!job.IsOpen()) {
    run.host.ShowMessage(exports::NotOpenedText(job.Result()));
    return outcome;
  }
  geo::LocalOffsets<jobstore::References> offsets(job);
  if (!offsets.Prepared()) run.host.ShowMessage(exports::NotPreparedText(offsets.Result()));
  if (!offsets.HasReference()) return outcome;

  Setups setups = ReadSetups(job, run.host);
  jobstore::Query<jobstore::BoomEpochs> epochs(job);
  if (!epochs.Prepared()) run.host.ShowMessage(exports::NotPreparedText(epochs.Result()));

  Track track(setups, run.allSections);
  outcome.epochs =
      geo::WalkEpochs(epochs, offsets, run.host, [&](const auto& epoch, geo::UtmPoint antenna) {
        track.Add(antenna, epoch.yaw, setups.At(epoch.time), epoch.boomStatus,
                  epoch.BeginsStretch());
      });
  outcome.lastStep = epochs.LastStep();

  outcome.summary = InWords(track.Missing());
  const Runs runs(track, run.host);
  const std::vector<NetPiece> pieces = InOrder(NetGround(runs, run.host));
  if (pieces.empty() || basePath.empty()) return outcome;
  const Totals totals = Sum(pieces, runs.SweptSquareMetres());
  outcome.figures = totals.Figures(WriteNetSet(basePath, pieces, totals, offsets.Plane(), run));
  outcome.made = true;
  outcome.summary.insert(0, totals.InWords());
  return outcome;
}

}  // namespace kestrin::net
