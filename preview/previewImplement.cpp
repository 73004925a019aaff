#include "preview/previewImplement.h"

#include <cmath>

namespace kestrin {

Heading::Heading(double yaw) : cos_(std::cos(yaw)), sin_(std::sin(yaw)) {}

PreviewImplement::PreviewImplement(Job& job) : cursor_(job) {
  if (cursor_.HasCurrent()) Take(cursor_.Current());
}

void PreviewImplement::AdvanceTo(GpsKey time) {
  cursor_.AdvanceTo(time, [this](const ImplementRow& row) { Take(row); });
}

void PreviewImplement::Take(const ImplementRow& row) {
  used_ = 0;
  width_ = 0;
  for (const Section& section : row.sections) {
    if (!(section.width > 0)) continue;
    sections_[used_++] = section;
    width_ += section.width;
  }
}

}  // namespace kestrin
