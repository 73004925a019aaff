#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "export/coverage/planeGeometry.h"
#include "export/exportRun.h"
#include "geo/localOffsets.h"
#include "shapefile/shapefileSet.h"

namespace kestrin::coverage {

/// One closed ring of a coverage polygon: up the left edge and back down the right
/// one, clockwise when driven forward, no two equal points in a row, its first
/// point also its last. UTM metres.
class Ring {
 public:
  void Build(const std::vector<geo::UtmPoint>& leftEdge,
             const std::vector<geo::UtmPoint>& rightEdge);

  const std::vector<geo::UtmPoint>& Points() const { return points_; }

  /// Whether it has the three distinct points that a ring needs.
  bool IsPolygon() const;

  double Acres() const;

 private:
  void Add(geo::UtmPoint point);

  std::vector<geo::UtmPoint> points_;
};

/// Writes the rings of a job as a polygon set, record by record. Makes no files
/// before the first ring to write.
class RingWriter {
 public:
  RingWriter(const std::string& basePath, const geo::WorkingPlane& plane, exports::ExportRun& run);
  ~RingWriter();

  /// Writes a ring that is a polygon; others leave no trace.
  void Write(const Ring& ring);

  /// Completes the set; false when there is none.
  bool Finish();

 private:
  struct Set;

  const std::string& basePath_;
  const geo::WorkingPlane& plane_;
  exports::ExportRun& run_;
  std::unique_ptr<Set> set_;
};

}  // namespace kestrin::coverage
