#pragma once

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <memory>
#include <mutex>
#include <string>

#include "export/exportKinds.h"
#include "gdal/jobSource.h"

namespace kestrin::gdal {

/// The set of a kind, read by GDAL's own shapefile driver for all layers of the process that show
/// it: a GIS opens a file anew for nearly everything it does, and a set may take long to make. It
/// is of the job as it was when the first of them asked for it; a job that has changed since has a
/// set of its own.
///
/// It lies in a private folder of the system's temporary one, and has no name there any more once
/// it can be read: the space is given back when nobody has the set any more, or with the end of
/// the process, whatever ends it. Any thread may call.
class SharedSet {
 public:
  /// The set that others have or nobody has made yet.
  static std::shared_ptr<SharedSet> Of(const exports::ExportKind& kind, const JobSource& job);

  SharedSet(const exports::ExportKind& kind, JobSource job);

  /// Makes the set unless it is made; who asks meanwhile waits. True when there is one.
  ///
  /// What there is to say goes to CPLError, to everyone who asks, in the words of the other
  /// programs: CE_Failure where there are no rows for some reason, CE_Warning where there are none
  /// to export or the rows ended early.
  bool Make();

  // Of a set that is made.

  const OGRFeatureDefn& Definition() const { return *layer_->GetLayerDefn(); }
  /// The IDs go from 0 to one less.
  GIntBig Count() const { return count_; }
  bool HasExtent(OGREnvelope& extent);
  /// Null for any other ID.
  OGRFeatureUniquePtr Feature(GIntBig id);

 private:
  void MakeAndOpen();
  void Report(const exports::ExportOutcome& outcome, bool told);

  const exports::ExportKind& kind_;
  JobSource job_;
  std::mutex mutex_;
  GDALDatasetUniquePtr opened_;
  OGRLayer* layer_ = nullptr;
  GIntBig count_ = 0;
  std::string warning_;  // of a set that was made
};

}  // namespace kestrin::gdal
