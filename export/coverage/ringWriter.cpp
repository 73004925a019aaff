#include "export/coverage/ringWriter.h"

#include "export/coverage/ringDegrees.h"
#include "shapefile/numberText.h"

namespace kestrin::coverage {

const std::array<shapefile::Field, 2> kFields{{{"ID", 'N', 8, 0}, {"ACRES", 'N', 10, 2}}};

RingWriter::RingWriter(const std::string& basePath, const geo::WorkingPlane& plane,
                       exports::ExportRun& run)
    : basePath_(basePath), plane_(plane), run_(run), attributes_(kFields) {}

void RingWriter::Write(Ring ring) {
  if (ring.empty()) return;
  if (!set_) {
    set_.emplace(run_.files, basePath_, shapefile::ShapeType::kPolygon, kFields, run_.options);
  }
  set_->BeginRecord();
  ForEachDegrees(ring, plane_, run_.host,
                 [&](const geo::GeoPoint& point) { set_->AddVertex(point); });
  attributes_.Clear();
  attributes_.Add(shapefile::IntegerText(set_->RecordCount()).View(), shapefile::Keep::kRight);
  attributes_.Add(shapefile::RoundedText(AcresIn(ring), 2).View(), shapefile::Keep::kLeft);
  set_->EndRecord(attributes_.Bytes());
}

bool RingWriter::Finish() {
  if (!set_) return false;
  set_->Commit();
  return true;
}

}  // namespace kestrin::coverage
