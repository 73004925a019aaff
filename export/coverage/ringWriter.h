#pragma once

#include <array>
#include <optional>
#include <string>

#include "export/coverage/rings.h"
#include "export/exportRun.h"
#include "shapefile/attributeTable.h"
#include "shapefile/shapefileSet.h"

namespace kestrin::coverage {

extern const std::array<shapefile::Field, 2> kFields;

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

 private:
  const std::string& basePath_;
  const geo::WorkingPlane& plane_;
  exports::ExportRun& run_;
  std::optional<shapefile::ShapefileSet> set_;
  shapefile::AttributeRecord attributes_;
};

}  // namespace kestrin::coverage
