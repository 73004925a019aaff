#include "export/boom/timeline.h"

#include <algorithm>
#include <string_view>

#include "base/text.h"
#include "export/tableRows.h"
#include "shapefile/attributeTable.h"

namespace kestrin::boom {
namespace {

/// What the set shows of a name: a job made to do harm has long ones by the million.
std::string Shown(std::string_view name) { return std::string(shapefile::NameText(name)); }

bool AllEmpty(const ProductNames& names) {
  return std::all_of(names.begin(), names.end(), [](const auto& name) { return name.empty(); });
}

bool AllZero(const std::array<double, jobstore::kProductSlots>& rates) {
  return std::all_of(rates.begin(), rates.end(), [](double rate) { return rate == 0; });
}

}  // namespace

ImplementSetup SetupOf(const jobstore::ImplementRow& row) {
  ImplementSetup setup{Shown(base::TrimmedBlanks(row.name)), {}};
  for (const jobstore::Section& section : row.sections) {
    if (section.width >= 0) {
      setup.sections.push_back({section.width / 2, section.xOffset, section.yOffset});
    }
  }
  return setup;
}

void Timeline::AppendDesiredRates(const jobstore::RatesRow& row) {
  const jobstore::GpsKey latest =
      byLatest_.empty() ? row.time : std::max(row.time, byLatest_.rbegin()->first);
  byLatest_.emplace_hint(byLatest_.end(), latest, TimelineEntry{row.time, row.rates, 0, 0});
}

void Timeline::MergeProducts(const jobstore::ProductsRow& row) {
  EntryAt(row.time).products = static_cast<std::uint32_t>(products_.size());
  ProductNames& shown = products_.emplace_back();
  std::ranges::transform(row.names, shown.begin(), Shown);
}

void Timeline::MergeImplement(const jobstore::ImplementRow& row) {
  EntryAt(row.time).implement = static_cast<std::uint32_t>(implements_.size());
  implements_.push_back(SetupOf(row));
}

TimelineEntry& Timeline::EntryAt(jobstore::GpsKey time) {
  auto at = byLatest_.lower_bound(time);
  if (at == byLatest_.end() || at->first != time) {
    at = byLatest_.emplace_hint(at, time, TimelineEntry{time, {}, 0, 0});
  }
  return at->second;
}

void Timeline::Close() {
  entries_.reserve(byLatest_.size());
  for (const auto& [latest, entry] : byLatest_) entries_.push_back(entry);
  byLatest_.clear();
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
  exports::ForEachRow<jobstore::Implements>(job, host,
                                            [&](const auto& row) { timeline.MergeImplement(row); });
  timeline.Close();
  timeline.FillForward();
  return timeline;
}

}  // namespace kestrin::boom
