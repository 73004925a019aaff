#include "export/coverage/ringWriter.h"

#include <array>

#include "shapefile/numberText.h"

namespace kestrin::coverage {
namespace {

const std::array<shapefile::Field, 2> kFields{{{"ID", 'N', 8, 0}, {"ACRES", 'N', 10, 2}}};

}  // namespace

RingWriter::RingWriter(const std::string& basePath, exports::ExportRun& run)
    : basePath_(basePath), run_(run), attributes_(kFields) {}

void RingWriter::Write(const Ring& ring) {
  if (ring.degrees.empty()) return;
  if (!set_) {
    set_.emplace(run_.files, basePath_, shapefile::ShapeType::kPolygon, kFields, run_.options);
  }
  set_->BeginRecord();
  for (const geo::GeoPoint& point : ring.degrees) set_->AddVertex(point);
  attributes_.Clear();
  attributes_.Add(shapefile::IntegerText(set_->RecordCount()).View(), shapefile::Keep::kRight);
  attributes_.Add(shapefile::RoundedText(ring.Acres(), 2).View(), shapefile::Keep::kLeft);
  set_->EndRecord(attributes_.Bytes());
}

bool RingWriter::Finish() {
  if (!set_) return false;
  set_->Commit();
  return true;
}

}  // namespace kestrin::coverage
