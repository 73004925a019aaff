#include "export/boom/boomExport.h"

#include <memory>
#include <optional>
#include <vector>

#include "export/boom/periods.h"
#include "export/boom/records.h"
#include "export/boom/table.h"
#include "export/boom/timeline.h"
#include "export/inOrder.h"
#include "export/projectedPoints.h"
#include "export/tableRows.h"
#include "geo/epochWalk.h"
#include "geo/heading.h"
#include "geo/weekFirstOffsets.h"
#include "jobstore/changeCursor.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "shapefile/numberText.h"

namespace kestrin::boom {
namespace {

/// Two epochs belong together when their actual rates are equal in the digits that
/// the table shows.
constexpr int kRateDecimals = 2;

ActualRateSet Rounded(const jobstore::RatesRow& row) {
  ActualRateSet rates;
  for (std::size_t slot = 0; slot < jobstore::kProductSlots; ++slot) {
    rates[slot] = shapefile::RoundTo(row.rates[slot], kRateDecimals);
  }
  return rates;
}

/// Why no set can come of a job whose epoch of that number, counted from 1, would go into the
/// record that begins the set (Records).
std::string ReturnText(std::int64_t number, jobstore::GpsKey time) {
  return "at epoch " + std::to_string(number) + " (week " + std::to_string(time.gpsWeek) +
         ", millisecond " + std::to_string(time.gpsMsec) +
         ") the job returns to its first rates, and a boom set cannot hold that";
}

/// Epochs whose cross-lines are on their way to degrees.
struct Batch : exports::ProjectedPoints {
  struct Epoch {
    std::size_t entry = 0;  // of the timeline
    std::int64_t number = 0;
    jobstore::GpsKey time;
    ActualRateSet rates{};
    std::size_t linesEnd = 0;  // of its cross-lines, two points each
  };

  using ProjectedPoints::ProjectedPoints;

  bool IsEmpty() const { return epochs.empty(); }
  bool IsFull() const { return points.size() >= kPoints || epochs.size() >= kEpochs; }
  void Clear() {
    epochs.clear();
    points.clear();
  }

  static constexpr std::size_t kPoints = 2048;
  static constexpr std::size_t kEpochs = 1024;

  std::vector<Epoch> epochs;
};

/// Lays a job's epochs into records.
class BoomLayer {
 public:
  BoomLayer(jobstore::Job& job, exports::ExportRun& run, const Timeline& timeline,
            std::vector<jobstore::ReferenceRow> references)
      : host_(run.host),
        timeline_(timeline),
        offsets_(std::move(references)),
        actualRates_(job),
        rates_(Rounded(actualRates_.Current())),
        periods_(job, timeline.Entries()),
        batches_(
            run.crew, [this] { return std::make_unique<Batch>(offsets_.Plane().Zone()); },
            [this](const Batch& batch) { Lay(batch); }) {}

  void LayAll() {
    for (std::size_t entry = 0; entry < timeline_.Entries().size(); ++entry) {
      host_.Yield();
      if (exports::IsPreparedOrTold(periods_, host_)) ReadPeriod(entry);
    }
    batches_.Finish();
  }

  const Records& Laid() const { return records_; }
  std::int64_t Epochs() const { return epochs_; }
  std::int32_t LastStep() const { return periods_.LastStep(); }

 private:
  void ReadPeriod(std::size_t entry) {
    const ImplementSetup& setup = timeline_.ImplementOf(timeline_.Entries()[entry]);
    PeriodRows rows(periods_, entry);
    geo::WalkEpochs(rows, offsets_, host_, [&](const auto& epoch, geo::UtmPoint antenna) {
      ++epochs_;
      actualRates_.AdvanceTo(epoch.time,
                             [this](const jobstore::RatesRow& row) { rates_ = Rounded(row); });
      Batch& batch = batches_.Filling();
      AddCrossLines(batch.points, epoch.yaw, antenna, setup);
      batch.epochs.push_back({entry, epochs_, epoch.time, rates_, batch.points.size() / 2});
      batches_.Filled();
    });
  }

  static void AddCrossLines(std::vector<geo::UtmPoint>& points, double yaw, geo::UtmPoint antenna,
                            const ImplementSetup& setup) {
    const geo::Heading heading(yaw);
    for (const UsedSection& section : setup.sections) {
      // The offsets keep to east and north whatever the heading, as the sets have
      // always shown them.
      const auto add = [&](geo::UtmPoint end) {
        points.push_back({end.easting + section.xOffset, end.northing + section.yOffset});
      };
      add(heading.RightOf(antenna, section.halfWidth));
      add(heading.LeftOf(antenna, section.halfWidth));
    }
  }

  void Lay(const Batch& batch) {
    std::size_t line = 0;
    for (const Batch::Epoch& epoch : batch.epochs) {
      if (laidEntry_ != epoch.entry) records_.StartPeriod(epoch.entry);
      laidEntry_ = epoch.entry;
      records_.Select(epoch.rates);
      try {
        for (; line < epoch.linesEnd; ++line) {
          records_.Lay({batch.degrees[2 * line], batch.degrees[2 * line + 1]});
        }
      } catch (const exports::SubscriptError&) {
        throw exports::SubscriptError(ReturnText(epoch.number, epoch.time));
      }
    }
  }

  base::RunHost& host_;
  const Timeline& timeline_;
  geo::WeekFirstOffsets offsets_;
  jobstore::ChangeCursor<jobstore::ActualRates> actualRates_;
  ActualRateSet rates_;
  Periods periods_;
  Records records_;
  std::optional<std::size_t> laidEntry_;  // of the epoch laid last
  std::int64_t epochs_ = 0;
  exports::InOrder<Batch> batches_;
};

/// Writing tens of millions of points takes seconds, so it yields like the rows do.
void WriteRecords(const Records& records, const Timeline& timeline, base::RunHost& host,
                  shapefile::ShapefileSet& set) {
  Table table(timeline);
  for (std::size_t record = 0; record < records.Count(); ++record) {
    set.BeginCrossLines(records[record].box, records.LineCount(record),
                        table.RowOf(record, records[record]));
    records.ForEachPiece(record, [&](std::span<const CrossLine> piece) {
      host.Yield();
      for (const CrossLine& line : piece) set.AddCrossLine(line.first, line.second);
    });
  }
  set.SetBox(records.FileBox());
}

}  // namespace

exports::ExportOutcome ExportBoomShape(const std::string& basePath, const std::string& jobPath,
                                       exports::ExportRun& run) {
  exports::ExportOutcome outcome;
  shapefile::RemoveSet(run.files, basePath);

  jobstore::Job job(jobPath, run.host);
  if (!exports::IsOpenOrTold(job, run.host)) return outcome;
  std::vector<jobstore::ReferenceRow> references;
  exports::ForEachRow<jobstore::References>(
      job, run.host, [&](const jobstore::ReferenceRow& row) { references.push_back(row); });
  const Timeline timeline = ReadTimeline(job, run.host);
  if (references.empty() && job.Library().FirstError() != jobstore::kDone) {
    return exports::NothingIn(job);
  }
  if (references.empty()) throw exports::SubscriptError("the job has no reference location");

  BoomLayer layer(job, run, timeline, std::move(references));
  layer.LayAll();
  outcome.epochs = layer.Epochs();
  outcome.lastStep = exports::EndOfReading(job, layer);

  shapefile::ShapefileSet set(run.files, basePath, shapefile::ShapeType::kPolyline, kFields,
                              run.options);
  WriteRecords(layer.Laid(), timeline, run.host, set);
  set.Commit();
  outcome.made = true;
  return outcome;
}

}  // namespace kestrin::boom
