#include "export/boomExport.h"

#include <cmath>
#include <vector>

#include "export/boomPeriods.h"
#include "export/boomRecords.h"
#include "export/boomTable.h"
#include "export/boomTimeline.h"
#include "export/numberText.h"
#include "geo/weekFirstOffsets.h"
#include "jobstore/changeCursor.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin {
namespace {

/// Two epochs belong together when their actual rates are equal in the digits that
/// the table shows.
constexpr int kRateDecimals = 2;

std::vector<ReferenceRow> ReadReferences(Job& job, RunHost& host) {
  std::vector<ReferenceRow> references;
  Query<References> query(job);
  if (!query.Prepared()) {
    host.ShowMessage(NotPreparedText(query.Handle()));
  }
  for (ReferenceRow row; query.Next(row);) references.push_back(row);
  return references;
}

ActualRateSet Rounded(const RatesRow& row) {
  ActualRateSet rates;
  for (std::size_t slot = 0; slot < kProductSlots; ++slot) {
    rates[slot] = RoundTo(row.rates[slot], kRateDecimals);
  }
  return rates;
}

/// Lays a job's epochs into records.
class BoomLayer {
 public:
  BoomLayer(Job& job, RunHost& host, const BoomTimeline& timeline,
            std::vector<ReferenceRow> references)
      : host_(host),
        timeline_(timeline),
        offsets_(std::move(references)),
        actualRates_(job),
        rates_(Rounded(actualRates_.Current())),
        periods_(job, timeline.Entries()) {}

  void LayAll() {
    for (std::size_t entry = 0; entry < timeline_.Entries().size(); ++entry) {
      records_.StartPeriod(entry);
      if (periods_.Prepared()) {
        LayPeriod(entry);
      } else {
        host_.ShowMessage(NotPreparedText(periods_.Handle()));
      }
    }
  }

  const BoomRecords& Records() const { return records_; }
  std::int64_t Epochs() const { return epochs_; }
  std::int32_t LastStep() const { return periods_.LastStep(); }

 private:
  void LayPeriod(std::size_t entry) {
    const ImplementSetup& setup = timeline_.ImplementOf(timeline_.Entries()[entry]);
    for (EpochRow epoch; periods_.Next(entry, epoch);) {
      host_.CountRow();
      host_.Yield();
      ++epochs_;
      Lay(epoch, setup);
    }
  }

  void Lay(const EpochRow& epoch, const ImplementSetup& setup) {
    offsets_.AdvanceTo(epoch.time);
    actualRates_.AdvanceTo(epoch.time, [this](const RatesRow& row) { rates_ = Rounded(row); });
    records_.Select(rates_);

    const WorkingPlane& plane = offsets_.Plane();
    const UtmPoint antenna = plane.At(epoch.east, epoch.north);
    const double cosine = std::cos(epoch.yaw);
    const double sine = std::sin(epoch.yaw);
    for (const UsedSection& section : setup.sections) {
      // The offsets keep to east and north whatever the heading, as the sets have
      // always shown them.
      const double east = cosine * section.halfWidth;
      const double north = sine * section.halfWidth;
      const GeoPoint first = plane.ToGeo(
          {antenna.easting + east + section.xOffset, antenna.northing - north + section.yOffset});
      const GeoPoint second = plane.ToGeo(
          {antenna.easting - east + section.xOffset, antenna.northing + north + section.yOffset});
      records_.Lay({first.longitude, first.latitude, second.longitude, second.latitude});
    }
  }

  RunHost& host_;
  const BoomTimeline& timeline_;
  WeekFirstOffsets offsets_;
  ChangeCursor<ActualRates> actualRates_;
  ActualRateSet rates_;
  BoomPeriods periods_;
  BoomRecords records_;
  std::int64_t epochs_ = 0;
};

/// Writing tens of millions of points takes seconds, so it yields like the rows do.
void WriteRecords(const BoomRecords& records, const BoomTimeline& timeline, RunHost& host,
                  ShapefileSet& set) {
  BoomTable table(timeline);
  for (std::size_t record = 0; record < records.Count(); ++record) {
    set.BeginPairs(records[record].box, records.PairCount(record));
    records.ForEachPiece(record, [&](std::span<const double> piece) {
      host.Yield();
      set.AddPairPoints(piece);
    });
    set.AddAttributes(table.RowOf(record, records[record]));
  }
  const Box& box = records.FileBox();
  if (box.empty) return;
  set.WidenBox(box.xMin, box.yMin);
  set.WidenBox(box.xMax, box.yMax);
}

}  // namespace

ExportOutcome ExportBoomShape(const std::string& basePath, const std::string& jobPath,
                              ExportRun& run) {
  ExportOutcome outcome;
  RemoveSet(run.files, basePath);

  Job job(jobPath, run.host);
  if (!job.IsOpen()) {
    run.host.ShowMessage(NotOpenedText(job.Handle()));
    return outcome;
  }
  std::vector<ReferenceRow> references = ReadReferences(job, run.host);
  const BoomTimeline timeline = ReadBoomTimeline(job, run.host);
  if (references.empty()) throw SubscriptError();

  BoomLayer layer(job, run.host, timeline, std::move(references));
  layer.LayAll();
  outcome.epochs = layer.Epochs();
  outcome.lastStep = layer.LastStep();

  ShapefileSet set(run.files, basePath, ShapeType::kPolyline, kBoomFields, run.options);
  WriteRecords(layer.Records(), timeline, run.host, set);
  set.Commit();
  outcome.made = true;
  return outcome;
}

}  // namespace kestrin
