#include "export/boom/timeline.h"

#include <algorithm>

#include "base/text.h"
#include "export/tableRows.h"

namespace kestrin::boom {
namespace {

bool AllEmpty(const ProductNames& names) {
  return std::all_of(names.begin(), names.end(), [](const auto& name) { return name.empty(); });
}

bool AllZero(const std::array<double, jobstore::kProductSlots>& rates) {
  return std::all_of(rates.begin(), rates.end(), [](double rate) { return rate == 0; });
}

}  // namespace

ImplementSetup SetupOf(const jobstore::ImplementRow& row) {
  ImplementSetup setup{std::string(base::TrimmedBlanks(row.name)), {}};
  for (const jobstore::Section& section : row.sections) {
    if (section.width >= 0) {
      setup.sections.push_back({section.width / 2, section.xOffset, section.yOffset});
    }
  }
  return setup;
}

void Timeline::AppendDesiredRates(const jobstore::RatesRow& row) {
  entries_.push_back({row.time, row.rates, 0, 0});
}

void Timeline::MergeProducts(const jobstore::ProductsRow& row) {
  EntryAt(row.time).products = static_cast<std::uint32_t>(products_.size());
  products_.push_back(row.names);
}

void Timeline::MergeImplement(const jobstore::ImplementRow& row) {
  EntryAt(row.time).implement = static_cast<std::uint32_t>(implements_.size());
  implements_.push_back(SetupOf(row));
}

TimelineEntry& Timeline::EntryAt(jobstore::GpsKey time) {
  // Keys that do not order as stored (not integers) can come out of order: such a
  // row is looked for from the front again.
  if (time < lastMerged_) EndTable();
  lastMerged_ = time;
  while (moved_ < entries_.size() && entries_[moved_].time < time) {
    passed_.push_back(entries_[moved_++]);
  }
  if (!passed_.empty() && passed_.back().time == time) return passed_.back();
  if (moved_ < entries_.size() && entries_[moved_].time == time) return entries_[moved_];
  passed_.push_back({time, {}, 0, 0});
  return passed_.back();
}

void Timeline::EndTable() {
  passed_.insert(passed_.end(), entries_.begin() + static_cast<std::ptrdiff_t>(moved_),
                 entries_.end());
  entries_ = std::move(passed_);
  passed_.clear();
  moved_ = 0;
  lastMerged_ = {INT32_MIN, INT32_MIN};
}

void Timeline::FillForward() {
  for (std::size_t i = 1; i < entries_.size(); ++i) {
    const TimelineEntry& before = entries_[i - 1];
    TimelineEntry& entry = entries_[i];
    if (ImplementOf(entry).name.empty()) entry.implement = before.implement;
    if (AllEmpty(ProductsOf(entry))) entry.products = before.products;
    if (AllZero(entry.desiredRates)) entry.desiredRates = before.desiredRates;
  }
}

Timeline ReadTimeline(jobstore::Job& job, base::RunHost& host) {
  Timeline timeline;
  exports::ForEachRow<jobstore::DesiredRates>(
      job, host, [&](const auto& row) { timeline.AppendDesiredRates(row); });
  exports::ForEachRow<jobstore::Products>(job, host,
                                          [&](const auto& row) { timeline.MergeProducts(row); });
  timeline.EndTable();
  exports::ForEachRow<jobstore::Implements>(job, host,
                                            [&](const auto& row) { timeline.MergeImplement(row); });
  timeline.EndTable();
  timeline.FillForward();
  return timeline;
}

}  // namespace kestrin::boom
