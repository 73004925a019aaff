#include "export/coverage/rings.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "shapefile/attributeTable.h"
#include "shapefile/numberText.h"

namespace kestrin::coverage {
namespace {

const std::array<shapefile::Field, 2> kFields{{{"ID", 'N', 8, 0}, {"ACRES", 'N', 10, 2}}};

constexpr double kAcresPerSquareMetre = 0.000247105381;

}  // namespace

Ring::Ring(const std::vector<geo::UtmPoint>& leftEdge,
           const std::vector<geo::UtmPoint>& rightEdge) {
  points_.reserve(leftEdge.size() + rightEdge.size() + 1);
  for (const geo::UtmPoint& point : leftEdge) Add(point);
  // NOLINTNEXTLINE(modernize-loop-convert): Clang 14 does not know the library's reversed view.
  for (auto point = rightEdge.rbegin(); point != rightEdge.rend(); ++point) Add(*point);
  if (!points_.empty()) Add(points_.front());
}

void Ring::Add(geo::UtmPoint point) {
  if (points_.empty() || point != points_.back()) points_.push_back(point);
}

bool Ring::IsPolygon() const {
  std::size_t distinct = 0;
  const geo::UtmPoint* known[2] = {};
  for (const geo::UtmPoint& point : points_) {
    if ((distinct > 0 && point == *known[0]) || (distinct > 1 && point == *known[1])) continue;
    if (distinct == 2) return true;
    known[distinct++] = &point;
  }
  return false;
}

double Ring::Acres() const { return std::fabs(PolygonArea(points_)) * kAcresPerSquareMetre; }

RingWriter::RingWriter(const std::string& basePath, const geo::WorkingPlane& plane,
                       exports::ExportRun& run)
    : basePath_(basePath), plane_(plane), run_(run), attributes_(kFields) {}

void RingWriter::Write(const Ring& ring) {
  if (!ring.IsPolygon()) return;
  if (!set_) {
    set_.emplace(run_.files, basePath_, shapefile::ShapeType::kPolygon, kFields, run_.options);
  }
  set_->BeginRecord();
  AddVertices(ring.Points());
  attributes_.Clear();
  attributes_.Add(shapefile::IntegerText(set_->RecordCount()).View(), shapefile::Keep::kRight);
  attributes_.Add(shapefile::RoundedText(ring.Acres(), 2).View(), shapefile::Keep::kLeft);
  set_->EndRecord(attributes_.Bytes());
}

void RingWriter::AddVertices(std::span<const geo::UtmPoint> points) {
  constexpr std::size_t kTogether = 64;
  std::array<geo::GeoPoint, kTogether> degrees{};
  for (std::size_t i = 0; i < points.size(); i += kTogether) {
    // A whole field can be one ring.
    if (i > 0) run_.host.Yield();
    const auto some = points.subspan(i, std::min(kTogether, points.size() - i));
    plane_.ToGeo(some, degrees);
    for (const geo::GeoPoint& point : std::span(degrees).first(some.size())) {
      set_->AddVertex(point);
    }
  }
}

bool RingWriter::Finish() {
  if (!set_) return false;
  set_->Commit();
  return true;
}

}  // namespace kestrin::coverage
