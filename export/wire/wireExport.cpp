#include "export/wire/wireExport.h"

#include <cmath>
#include <optional>

#include "export/tableRows.h"
#include "geo/epochWalk.h"
#include "geo/localOffsets.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "shapefile/numberText.h"

namespace kestrin::wire {

const std::array<shapefile::Field, 2> kFields{{{"ID", 'N', 8, 0}, {"METERS", 'N', 10, 2}}};

namespace {

/// The open record: its length so far and where its last point lies.
struct Stretch {
  double metres = 0;
  geo::UtmPoint last;
};

class WireWriter {
 public:
  WireWriter(const std::string& basePath, exports::ExportRun& run)
      : set_(run.files, basePath, shapefile::ShapeType::kPolyline, kFields, run.options),
        record_(kFields) {}

  void Add(bool begins, geo::UtmPoint point, geo::GeoPoint position) {
    if (!open_ || begins) {
      Close();
      set_.BeginRecord();
      open_ = Stretch{};
    } else {
      const double east = point.easting - open_->last.easting;
      const double north = point.northing - open_->last.northing;
      open_->metres += std::sqrt(east * east + north * north);
    }
    open_->last = point;
    set_.AddVertex(position);
  }

  /// Completes the set; returns its metres, added up as the records show them.
  double Finish() {
    Close();
    set_.Commit();
    return shapefile::RoundTo(metres_, 2);
  }

 private:
  void Close() {
    if (!open_) return;
    record_.Clear();
    record_.Add(shapefile::IntegerText(set_.RecordCount()).View(), shapefile::Keep::kRight);
    const shapefile::NumberText metres = shapefile::RoundedText(open_->metres, 2);
    record_.Add(metres.View(), shapefile::Keep::kLeft);
    metres_ += shapefile::NumberIn(metres.View(), kFields[1].width);
    set_.EndRecord(record_.Bytes());
  }

  shapefile::ShapefileSet set_;
  shapefile::AttributeRecord record_;
  std::optional<Stretch> open_;
  double metres_ = 0;
};

}  // namespace

exports::ExportOutcome ExportWireShape(const std::string& basePath, const std::string& jobPath,
                                       exports::ExportRun& run) {
  exports::ExportOutcome outcome;
  shapefile::RemoveSet(run.files, basePath);
  if (basePath.empty() || jobPath.empty()) return outcome;

  jobstore::Job job(jobPath, run.host);
  if (!exports::IsOpenOrTold(job, run.host)) return outcome;
  geo::LocalOffsets<jobstore::References> offsets(job);
  exports::IsPreparedOrTold(offsets, run.host);
  if (!offsets.HasReference()) return exports::NothingIn(job);

  jobstore::Query<jobstore::WireEpochs> epochs(job);
  if (!epochs.Prepared()) {
    // The message has always named the reference statement here, and support
    // notes quote it so.
    run.host.ShowMessage(exports::NotPreparedText(offsets.Result()));
    return outcome;
  }

  std::optional<WireWriter> writer;
  outcome.epochs =
      geo::WalkEpochs(epochs, offsets, run.host, [&](const auto& epoch, geo::UtmPoint point) {
        if (!writer) writer.emplace(basePath, run);
        writer->Add(epoch.BeginsStretch(), point, offsets.Plane().ToGeo(point));
      });
  outcome.lastStep = exports::EndOfReading(job, epochs);
  if (!writer) return outcome;
  outcome.figures = {{"meters", writer->Finish()}};
  outcome.made = true;
  return outcome;
}

}  // namespace kestrin::wire
