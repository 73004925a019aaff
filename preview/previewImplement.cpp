#include "preview/previewImplement.h"

#include <cmath>

namespace kestrin::preview {

Heading::Heading(double yaw) : cos_(std::cos(yaw)), sin_(std::sin(yaw)) {}

PreviewImplement::PreviewImplement(jobstore::Job& job) : cursor_(job) {
  if (cursor_.HasCurrent()) Take(cursor_.Current());
}

void PreviewImplement::AdvanceTo(jobstore::GpsKey time) {
  cursor_.AdvanceTo(time, [this](const jobstore::ImplementRow& row) { Take(row); });
}

void PreviewImplement::Take(const jobstore::ImplementRow& row) {
  used_ = 0;
  width_ = 0;
  for (const jobstore::Section& section : row.sections) {
    if (!(section.width > 0)) continue;
    sections_[used_++] = section;
    width_ += section.width;
  }
}

}  // namespace kestrin::preview
