#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "export/coverage/rings.h"
#include "export/exportRun.h"
#include "export/inOrder.h"
#include "export/projectedPoints.h"
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

  /// Takes a ring to write, which is not empty.
  void Write(Ring ring);

  /// Completes the set; false when there is none.
  bool Finish();

  /// Of the rings written, added up as the records show them. For after Finish().
  double Acres() const { return acres_; }

 private:
  /// Points of rings on their way to degrees. A long ring is in several.
  struct Batch : exports::ProjectedPoints {
    struct RingEnd {
      std::size_t point = 0;  // after the last
      double acres = 0;
    };

    using ProjectedPoints::ProjectedPoints;

    bool IsEmpty() const { return points.empty(); }
    bool IsFull() const { return points.size() == kPoints; }
    void Clear();

    static constexpr std::size_t kPoints = 1024;

    std::vector<RingEnd> ends;
  };

  void Put(const Batch& batch);
  void EndRecord(double ofRing);

  const std::string& basePath_;
  exports::ExportRun& run_;
  std::optional<shapefile::ShapefileSet> set_;
  shapefile::AttributeRecord attributes_;
  std::optional<geo::GeoPoint> last_;  // of the open record
  double acres_ = 0;
  exports::InOrder<Batch> batches_;
};

}  // namespace kestrin::coverage
