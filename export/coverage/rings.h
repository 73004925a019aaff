#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "export/coverage/planeGeometry.h"
#include "export/exportRun.h"
#include "geo/workingPlane.h"
#include "shapefile/attributeTable.h"
#include "shapefile/shapefileSet.h"

namespace kestrin::coverage {

/// The closed line around one coverage polygon, as it is written: up the left edge, over
/// to the right edge's end, back down the right edge, and the first point once more. No
/// two neighbours are equal. It runs clockwise when the vehicle drives forward, as
/// readers of shapefiles want it of outer rings. UTM metres.
///
/// Nothing fails. Edges without points make an empty ring; NaN coordinates are kept.
class Ring {
 public:
  Ring(const std::vector<geo::UtmPoint>& leftEdge, const std::vector<geo::UtmPoint>& rightEdge);

  const std::vector<geo::UtmPoint>& Points() const { return points_; }

  /// Whether it has the three distinct points that a polygon needs.
  bool IsPolygon() const;

  /// The area in acres of the plane's square metres, whichever way the ring runs.
  double Acres() const;

 private:
  void Add(geo::UtmPoint point);

  std::vector<geo::UtmPoint> points_;
};

/// Writes the rings of a job as a polygon set, record by record, projected to degrees.
/// Makes no files before the first ring to write.
///
/// Throws what the files throw, and lets base::RunCancelled pass, which a long ring asks
/// for in between; without Finish() nothing stays of the set.
class RingWriter {
 public:
  RingWriter(const std::string& basePath, const geo::WorkingPlane& plane, exports::ExportRun& run);

  /// Writes a ring that is a polygon; others leave no trace.
  void Write(const Ring& ring);

  /// Completes the set; false when there is none.
  bool Finish();

 private:
  void AddVertices(std::span<const geo::UtmPoint> points);

  const std::string& basePath_;
  const geo::WorkingPlane& plane_;
  exports::ExportRun& run_;
  std::optional<shapefile::ShapefileSet> set_;
  shapefile::AttributeRecord attributes_;
};

}  // namespace kestrin::coverage
