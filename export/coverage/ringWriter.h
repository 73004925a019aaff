#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "export/coverage/rings.h"
#include "export/exportRun.h"
#include "export/inOrder.h"
#include "geo/utmProjection.h"
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

  /// Takes a ring to write; an empty one leaves no trace.
  void Write(Ring ring);

  /// Completes the set; false when there is none.
  bool Finish();

  /// Of the rings written, added up as the records show them. For after Finish().
  double Acres() const { return acres_; }

 private:
  /// Points of rings on their way from the plane to degrees. A long ring is in several.
  struct Batch : base::Crew::Task {
    struct RingEnd {
      std::size_t point = 0;  // after the last
      double acres = 0;
    };

    explicit Batch(std::int16_t zone) : projection(zone) {}

    bool IsEmpty() const { return points.empty(); }
    bool IsFull() const { return points.size() == kPoints; }
    void Clear();
    void Do() override;

    static constexpr std::size_t kPoints = 1024;

    std::vector<geo::UtmPoint> points;
    std::vector<geo::GeoPoint> degrees;
    std::vector<RingEnd> ends;
    geo::UtmProjection projection;
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
