#include "export/pointExport.h"

#include <optional>

#include "export/pointRecord.h"
#include "export/pointTable.h"
#include "geo/localOffsets.h"
#include "jobstore/changeCursor.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin {
namespace {

/// What is carried and applied at a time, kept in the record.
class Equipment {
 public:
  Equipment(Job& job, PointRecord& record)
      : desired_(job), actual_(job), products_(job), implements_(job), record_(record) {
    ShowImplement();
    ShowProducts();
  }

  void AdvanceTo(GpsKey time) {
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

  ChangeCursor<DesiredRates> desired_;
  ChangeCursor<ActualRates> actual_;
  ChangeCursor<Products> products_;
  ChangeCursor<Implements, LastChange::kNeverApplies> implements_;
  PointRecord& record_;
};

}  // namespace

ExportOutcome ExportPointShape(const std::string& basePath, const std::string& jobPath,
                               ExportRun& run) {
  ExportOutcome outcome;
  RemoveSet(run.files, basePath);
  if (basePath.empty() || jobPath.empty()) return outcome;

  Job job(jobPath, run.host);
  if (!job.IsOpen()) {
    run.host.ShowMessage(NotOpenedText(job.Handle()));
    return outcome;
  }
  LocalOffsets<ReferencesWithAltitude> offsets(job);
  if (!offsets.Prepared()) {
    run.host.ShowMessage(NotPreparedText(offsets.Handle()));
    return outcome;
  }
  if (!offsets.HasReference()) return outcome;

  const PointGroups groups = CountPointGroups(job);
  PointRecord record(groups);
  Equipment equipment(job, record);
  Query<PointEpochs> epochs(job);
  if (!epochs.Prepared()) {
    run.host.ShowMessage(NotPreparedText(epochs.Handle()));
    return outcome;
  }

  std::optional<ShapefileSet> set;
  for (EpochRow epoch; epochs.Next(epoch);) {
    run.host.CountRow();
    run.host.Yield();
    ++outcome.epochs;
    offsets.AdvanceTo(epoch.time);
    equipment.AdvanceTo(epoch.time);
    if (!set) {
      set.emplace(run.files, basePath, ShapeType::kPoint, PointFields(groups), run.options);
    }
    const GeoPoint position = offsets.Plane().ToGeo(offsets.At(epoch));
    record.SetEpoch(set->RecordCount(), epoch, position, offsets.Reference().altitude);
    set->AddPoint(position.longitude, position.latitude);
    set->AddAttributes(record.Bytes());
  }
  outcome.lastStep = epochs.LastStep();
  if (!set) return outcome;
  set->Commit();
  outcome.made = true;
  return outcome;
}

}  // namespace kestrin
