#include "export/coverage/ringWriter.h"

#include <memory>

#include "shapefile/numberText.h"

namespace kestrin::coverage {

const std::array<shapefile::Field, 2> kFields{{{"ID", 'N', 8, 0}, {"ACRES", 'N', 10, 2}}};

void RingWriter::Batch::Clear() {
  points.clear();
  ends.clear();
}

RingWriter::RingWriter(const std::string& basePath, const geo::WorkingPlane& plane,
                       exports::ExportRun& run)
    : basePath_(basePath),
      run_(run),
      attributes_(kFields),
      batches_(
          run.crew, [&] { return std::make_unique<Batch>(plane.Zone()); },
          [this](const Batch& batch) { Put(batch); }) {}

void RingWriter::Write(Ring ring) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    Batch& batch = batches_.Filling();
    batch.points.push_back(ring[i]);
    if (i + 1 == ring.size()) batch.ends.push_back({batch.points.size(), AcresIn(ring)});
    batches_.Filled();
  }
}

void RingWriter::Put(const Batch& batch) {
  // A whole field can be one ring.
  run_.host.Yield();
  std::size_t ring = 0;
  for (std::size_t i = 0; i < batch.degrees.size(); ++i) {
    if (!set_) {
      set_.emplace(run_.files, basePath_, shapefile::ShapeType::kPolygon, kFields, run_.options);
    }
    if (!last_) set_->BeginRecord();
    // Points a millionth of a millimetre apart can be one in degrees.
    if (batch.degrees[i] != last_) set_->AddVertex(batch.degrees[i]);
    last_ = batch.degrees[i];
    if (ring < batch.ends.size() && batch.ends[ring].point == i + 1) {
      EndRecord(batch.ends[ring++].acres);
    }
  }
}

void RingWriter::EndRecord(double ofRing) {
  attributes_.Clear();
  attributes_.Add(shapefile::IntegerText(set_->RecordCount()).View(), shapefile::Keep::kRight);
  const shapefile::NumberText acres = shapefile::RoundedText(ofRing, 2);
  attributes_.Add(acres.View(), shapefile::Keep::kLeft);
  acres_ += shapefile::NumberIn(acres.View(), kFields[1].width);
  set_->EndRecord(attributes_.Bytes());
  last_.reset();
}

bool RingWriter::Finish() {
  batches_.Finish();
  if (!set_) return false;
  set_->Commit();
  return true;
}

}  // namespace kestrin::coverage
