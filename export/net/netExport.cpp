#include "export/net/netExport.h"

#include <numeric>

#include "export/net/netGround.h"
#include "export/net/netSet.h"
#include "export/net/setups.h"
#include "export/net/track.h"
#include "export/tableRows.h"
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
  if (!exports::IsOpenOrTold(job, run.host)) return outcome;
  geo::LocalOffsets<jobstore::References> offsets(job);
  exports::IsPreparedOrTold(offsets, run.host);
  if (!offsets.HasReference()) return exports::NothingIn(job);

  Setups setups = ReadSetups(job, run.host);
  jobstore::Query<jobstore::BoomEpochs> epochs(job);
  exports::IsPreparedOrTold(epochs, run.host);

  Track track(setups, run.allSections);
  outcome.epochs =
      geo::WalkEpochs(epochs, offsets, run.host, [&](const auto& epoch, geo::UtmPoint antenna) {
        track.Add(antenna, epoch.yaw, setups.At(epoch.time), epoch.boomStatus,
                  epoch.BeginsStretch());
      });
  outcome.lastStep = exports::EndOfReading(job, epochs);

  outcome.summary = InWords(track.Missing());
  Ground ground = NetGround(track, run.host);
  const std::vector<NetPiece> pieces = InOrder(std::move(ground.pieces));
  if (pieces.empty() || basePath.empty()) return outcome;
  const Totals totals = Sum(pieces, ground.sweptSquareMetres);
  outcome.figures = totals.Figures(WriteNetSet(basePath, pieces, totals, offsets.Plane(), run));
  outcome.made = true;
  outcome.summary.insert(0, totals.InWords());
  return outcome;
}

}  // namespace kestrin::net
