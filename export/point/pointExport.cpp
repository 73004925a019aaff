#include "export/point/pointExport.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "export/inOrder.h"
#include "export/point/record.h"
#include "export/point/table.h"
#include "export/tableRows.h"
#include "geo/epochWalk.h"
#include "geo/localOffsets.h"
#include "jobstore/changeCursor.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin::point {
namespace {

/// What is carried and applied at a time, kept in the record.
class Equipment {
 public:
  Equipment(jobstore::Job& job, Record& record)
      : desired_(job), actual_(job), products_(job), implements_(job), record_(record) {
    ShowImplement();
    ShowProducts();
  }

  void AdvanceTo(jobstore::GpsKey time) {
    bool changed = false;
    const auto note = [&changed](const auto&) { changed = true; };
    implements_.AdvanceTo(time, note);
    if (changed) ShowImplement();
    changed = false;
    desired_.AdvanceTo(time, note);
    actual_.AdvanceTo(time, note);
    products_.AdvanceTo(time, note);
    if (changed) ShowProducts();
  }

 private:
  void ShowImplement() { record_.SetImplement(implements_.Current()); }
  void ShowProducts() {
    record_.SetProducts(products_.Current(), desired_.Current(), actual_.Current());
  }

  jobstore::ChangeCursor<jobstore::DesiredRates> desired_;
  jobstore::ChangeCursor<jobstore::ActualRates> actual_;
  jobstore::ChangeCursor<jobstore::Products> products_;
  jobstore::ChangeCursor<jobstore::Implements, jobstore::LastChange::kNeverApplies> implements_;
  Record& record_;
};

/// Epochs on their way from the plane to degrees, and from numbers to text.
struct Batch : base::Crew::Task {
  struct Row {
    jobstore::EpochRow epoch;
    geo::UtmPoint point;
    double referenceAltitude = 0;
    std::int32_t id = 0;
  };

  explicit Batch(std::int16_t zone) : projection(zone) {}

  bool IsEmpty() const { return rows.empty(); }
  bool IsFull() const { return rows.size() == kRows; }
  void Clear() { rows.clear(); }
  void Do() override {
    positions.clear();
    texts.clear();
    for (const Row& row : rows) {
      positions.push_back(projection.ToGeo(row.point));
      texts += text.Of(row.id, row.epoch, positions.back(), row.referenceAltitude);
    }
  }
  std::string_view TextOf(std::size_t row) const {
    const std::string_view all = texts;
    const std::size_t size = all.size() / rows.size();
    return all.substr(row * size, size);
  }

  static constexpr std::size_t kRows = 256;

  std::vector<Row> rows;
  std::vector<geo::GeoPoint> positions;
  std::string texts;
  EpochText text;
  geo::UtmProjection projection;
};

}  // namespace

exports::ExportOutcome ExportPointShape(const std::string& basePath, const std::string& jobPath,
                                        exports::ExportRun& run) {
  exports::ExportOutcome outcome;
  shapefile::RemoveSet(run.files, basePath);
  if (basePath.empty() || jobPath.empty()) return outcome;

  jobstore::Job job(jobPath, run.host);
  if (!exports::IsOpenOrTold(job, run.host)) return outcome;
  geo::LocalOffsets<jobstore::ReferencesWithAltitude> offsets(job);
  exports::IsPreparedOrTold(offsets, run.host);
  if (!offsets.HasReference()) return exports::NothingIn(job);

  const Groups groups = CountGroups(job);
  Record record(groups);
  Equipment equipment(job, record);
  jobstore::Query<jobstore::PointEpochs> epochs(job);
  if (!exports::IsPreparedOrTold(epochs, run.host)) return outcome;

  std::optional<shapefile::ShapefileSet> set;
  const auto write = [&](const Batch& batch) {
    if (!set) {
      set.emplace(run.files, basePath, shapefile::ShapeType::kPoint, FieldsOf(groups), run.options);
    }
    for (std::size_t i = 0; i < batch.rows.size(); ++i) {
      equipment.AdvanceTo(batch.rows[i].epoch.time);
      record.SetEpoch(batch.TextOf(i));
      set->AddPoint(batch.positions[i], record.Bytes());
    }
  };
  exports::InOrder<Batch> batches(
      run.crew, [&] { return std::make_unique<Batch>(offsets.Plane().Zone()); }, write);
  std::int32_t id = 0;
  const auto add = [&](const jobstore::EpochRow& epoch, geo::UtmPoint point) {
    batches.Filling().rows.push_back({epoch, point, offsets.Reference().altitude, id++});
    batches.Filled();
  };
  outcome.epochs = geo::WalkEpochs(epochs, offsets, run.host, add);
  batches.Finish();
  outcome.lastStep = exports::EndOfReading(job, epochs);
  if (!set) return outcome;
  set->Commit();
  outcome.made = true;
  return outcome;
}

}  // namespace kestrin::point
