#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "export/exportRun.h"
#include "export/polyGeometry.h"
#include "export/shapefileSet.h"

namespace kestrin {

/// One closed ring of a coverage polygon: up the left edge and back down the right
/// one, clockwise when driven forward, no two equal points in a row, its first
/// point also its last. UTM metres.
class Ring {
 public:
  void Build(const std::vector<UtmPoint>& leftEdge, const std::vector<UtmPoint>& rightEdge);

  const std::vector<UtmPoint>& Points() const { return points_; }

  /// Whether it has the three distinct points that a ring needs.
  bool IsPolygon() const;

  double Acres() const;

 private:
  void Add(UtmPoint point);

  std::vector<UtmPoint> points_;
};

/// Writes the rings of a job as a polygon set, record by record. Makes no files
/// before the first ring to write.
class RingWriter {
 public:
  RingWriter(const std::string& basePath, const WorkingPlane& plane, ExportRun& run);
  ~RingWriter();

  /// Writes a ring that is a polygon; others leave no trace.
  void Write(const Ring& ring);

  /// Completes the set; false when there is none.
  bool Finish();

 private:
  struct Set;

  const std::string& basePath_;
  const WorkingPlane& plane_;
  ExportRun& run_;
  std::unique_ptr<Set> set_;
};

}  // namespace kestrin
