#include "export/coverage/widths.h"

#include "export/tableRows.h"

namespace kestrin::coverage {

void WidthTimeline::Add(const jobstore::ImplementRow& implement) {
  double sections = 0;
  for (const jobstore::Section& section : implement.sections) {
    if (section.width > 0) sections += section.width;
  }
  const double width = (entries_.empty() ? 0 : entries_.back().width) + sections;
  if (entries_.empty() || width != entries_.back().width) {
    entries_.push_back({implement.time, width});
  }
}

double WidthTimeline::At(jobstore::GpsKey time) {
  if (entries_.empty()) return 0;
  while (inForce_ + 1 < entries_.size() && entries_[inForce_ + 1].time <= time) ++inForce_;
  return entries_[inForce_].width;
}

WidthTimeline ReadWidths(jobstore::Job& job, base::RunHost& host) {
  WidthTimeline widths;
  exports::ForEachRow<jobstore::Implements>(
      job, host, [&](const jobstore::ImplementRow& row) { widths.Add(row); });
  return widths;
}

}  // namespace kestrin::coverage
