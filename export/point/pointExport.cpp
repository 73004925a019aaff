#include "export/point/pointExport.h"

#include <optional>

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

}  // namespace

exports::ExportOutcome ExportPointShape(const std::string& basePath, const std::string& jobPath,
                                        exports::ExportRun& run) {
  exports::ExportOutcome outcome;
  shapefile::RemoveSet(run.files, basePath);
  if (basePath.empty() || jobPath.empty()) return outcome;

  jobstore::Job job(jobPath, run.host);
  if (!exports::IsOpenOrTold(job, run.host)) return outcome;
  geo::LocalOffsets<jobstore::ReferencesWithAltitude> offsets(job);
  if (!exports::IsPreparedOrTold(offsets, run.host)) return outcome;
  if (!offsets.HasReference()) return outcome;

  const Groups groups = CountGroups(job);
  Record record(groups);
  Equipment equipment(job, record);
  jobstore::Query<jobstore::PointEpochs> epochs(job);
  if (!exports::IsPreparedOrTold(epochs, run.host)) return outcome;

  std::optional<shapefile::ShapefileSet> set;
  const auto add = [&](const jobstore::EpochRow& epoch, geo::UtmPoint point) {
    equipment.AdvanceTo(epoch.time);
    if (!set) {
      set.emplace(run.files, basePath, shapefile::ShapeType::kPoint, FieldsOf(groups), run.options);
    }
    const geo::GeoPoint position = offsets.Plane().ToGeo(point);
    record.SetEpoch(set->RecordCount(), epoch, position, offsets.Reference().altitude);
    set->AddPoint(position, record.Bytes());
  };
  outcome.epochs = geo::WalkEpochs(epochs, offsets, run.host, add);
  outcome.lastStep = epochs.LastStep();
  if (!set) return outcome;
  set->Commit();
  outcome.made = true;
  return outcome;
}

}  // namespace kestrin::point
