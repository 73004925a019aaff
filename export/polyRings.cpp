#include "export/polyRings.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "export/attributeTable.h"
#include "export/numberText.h"

namespace kestrin {
namespace {

const std::array<Field, 2> kFields{{{"ID", 'N', 8, 0}, {"ACRES", 'N', 10, 2}}};

constexpr double kAcresPerSquareMetre = 0.000247105381;

}  // namespace

void Ring::Build(const std::vector<UtmPoint>& leftEdge, const std::vector<UtmPoint>& rightEdge) {
  points_.clear();
  points_.reserve(leftEdge.size() + rightEdge.size() + 1);
  for (const UtmPoint& point : leftEdge) Add(point);
  for (auto point = rightEdge.rbegin(); point != rightEdge.rend(); ++point) Add(*point);
  if (!points_.empty()) Add(points_.front());
}

void Ring::Add(UtmPoint point) {
  if (points_.empty() || point != points_.back()) points_.push_back(point);
}

bool Ring::IsPolygon() const {
  std::size_t distinct = 0;
  const UtmPoint* known[2] = {};
  for (const UtmPoint& point : points_) {
    if ((distinct > 0 && point == *known[0]) || (distinct > 1 && point == *known[1])) continue;
    if (distinct == 2) return true;
    known[distinct++] = &point;
  }
  return false;
}

double Ring::Acres() const { return std::fabs(PolygonArea(points_)) * kAcresPerSquareMetre; }

struct RingWriter::Set {
  ShapefileSet shapes;
  AttributeRecord record{kFields};

  void AddVertices(std::span<const UtmPoint> points, const WorkingPlane& plane, RunHost& host);
};

void RingWriter::Set::AddVertices(std::span<const UtmPoint> points, const WorkingPlane& plane,
                                  RunHost& host) {
  constexpr std::size_t kTogether = 64;
  std::array<double, kTogether> x{};
  std::array<double, kTogether> y{};
  for (std::size_t i = 0; i < points.size(); i += kTogether) {
    // A whole field can be one ring.
    if (i > 0) host.Yield();
    const std::size_t count = std::min(kTogether, points.size() - i);
    for (std::size_t k = 0; k < count; ++k) {
      x[k] = points[i + k].easting;
      y[k] = points[i + k].northing;
    }
    plane.ToGeo({y.data(), count}, {x.data(), count});
    for (std::size_t k = 0; k < count; ++k) shapes.AddVertex(x[k], y[k]);
  }
}

RingWriter::RingWriter(const std::string& basePath, const WorkingPlane& plane, ExportRun& run)
    : basePath_(basePath), plane_(plane), run_(run) {}

RingWriter::~RingWriter() = default;

void RingWriter::Write(const Ring& ring) {
  if (!ring.IsPolygon()) return;
  if (!set_) {
    set_.reset(new Set{{run_.files, basePath_, ShapeType::kPolygon, kFields, run_.options}});
  }
  set_->shapes.BeginRecord();
  set_->AddVertices(ring.Points(), plane_, run_.host);
  set_->shapes.EndRecord();
  set_->record.Clear();
  set_->record.Add(IntegerText(set_->shapes.RecordCount() - 1).View(), Keep::kRight);
  set_->record.Add(RoundedText(ring.Acres(), 2).View(), Keep::kLeft);
  set_->shapes.AddAttributes(set_->record.Bytes());
}

bool RingWriter::Finish() {
  if (!set_) return false;
  set_->shapes.Commit();
  return true;
}

}  // namespace kestrin
