#pragma once

#include <ogr_feature.h>

#include <mutex>

#include "export/exportKinds.h"
#include "gdal/jobSource.h"

namespace kestrin::gdal {

/// What a layer's features are made of: NAD83, and the fields of the kind's table with the types
/// that GDAL gives them when it reads a set. The fields are looked up when they are first asked
/// for, as those of points hang on the job's rows; name, geometry and reference system are there
/// at once. Several threads may read it.
class LayerDefinition final : public OGRFeatureDefn {
 public:
  /// `kind` must outlive the definition, which is counted as GDAL counts them.
  LayerDefinition(const exports::ExportKind& kind, OGRwkbGeometryType geometry, JobSource job);

  int GetFieldCount() const override;
  OGRFieldDefn* GetFieldDefn(int index) override;
  const OGRFieldDefn* GetFieldDefn(int index) const override;
  int GetFieldIndex(const char* name) const override;

 private:
  void Complete() const;

  const exports::ExportKind& kind_;
  JobSource job_;
  // Whoever only reads completes it, too.
  OGRFeatureDefn& self_ = *this;
  mutable std::once_flag completed_;
};

}  // namespace kestrin::gdal
