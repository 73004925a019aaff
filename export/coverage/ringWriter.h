#pragma once

#include <optional>
#include <string>

#include "export/coverage/rings.h"
#include "export/exportRun.h"
#include "shapefile/attributeTable.h"
#include "shapefile/shapefileSet.h"

namespace kestrin::coverage {

/// Writes the rings of a job as a polygon set, record by record, projected to degrees. Makes no
/// files before the first ring to write.
///
/// Throws what the files throw; without Finish() nothing stays of the set.
class RingWriter {
 public:
  RingWriter(const std::string& basePath, const geo::WorkingPlane& plane, exports::ExportRun& run);

  /// Writes a ring; an empty one leaves no trace.
  void Write(Ring ring);

  /// Completes the set; false when there is none.
  bool Finish();

  /// Of the rings written, added up as the records show them.
  double Acres() const { return acres_; }

 private:
  const std::string& basePath_;
  const geo::WorkingPlane& plane_;
  exports::ExportRun& run_;
  std::optional<shapefile::ShapefileSet> set_;
  shapefile::AttributeRecord attributes_;
  double acres_ = 0;
};

}  // namespace kestrin::coverage
