#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/runHost.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin::boom {

/// A boom section that a cross-line is laid along: metres.
struct UsedSection {
  double halfWidth = 0;
  double xOffset = 0;
  double yOffset = 0;
};

/// What an implement row says of the boom: of the name without its leading and trailing
/// blanks what a set shows, and the sections whose width is not negative, in slot order.
struct ImplementSetup {
  std::string name;
  std::vector<UsedSection> sections;
};

ImplementSetup SetupOf(const jobstore::ImplementRow& row);

/// What a set shows of them.
using ProductNames = std::array<std::string, jobstore::kProductSlots>;

/// What is in force from `time` on. Products and implement are numbers of the
/// timeline's own lists; 0 stands for none.
struct TimelineEntry {
  jobstore::GpsKey time;
  std::array<double, jobstore::kProductSlots> desiredRates{};
  std::uint32_t products = 0;
  std::uint32_t implement = 0;
};

/// The times at which desired rates, products or implement change, in time order,
/// and what is in force at each. Filled table by table: all desired rates, then
/// all products, then all implements, then Close and
/// FillForward.
///
/// Rows that order otherwise than their times as read, as those of keys that are no whole
/// numbers can, are taken in any order, and a million of them find their places as fast.
class Timeline {
 public:
  /// Appends an entry, also when the last one has the same time.
  void AppendDesiredRates(const jobstore::RatesRow& row);

  /// The first entry of the row's time receives what the row holds. Where there is
  /// none, a blank entry is put in front of the first later one, or at the end.
  void MergeProducts(const jobstore::ProductsRow& row);
  void MergeImplement(const jobstore::ImplementRow& row);

  /// All tables have been filled in.
  void Close();

  /// Gives each entry but the first what it lacks from the entry before it: the
  /// implement when it has no name, the products when all three names are empty,
  /// the desired rates when all three are exactly 0. Rates that were really set to
  /// 0 cannot be told from missing ones and are replaced as well.
  void FillForward();

  /// None before Close.
  const std::vector<TimelineEntry>& Entries() const { return entries_; }
  const ImplementSetup& ImplementOf(const TimelineEntry& entry) const {
    return implements_[entry.implement];
  }
  const ProductNames& ProductsOf(const TimelineEntry& entry) const {
    return products_[entry.products];
  }

 private:
  TimelineEntry& EntryAt(jobstore::GpsKey time);

  /// Each by the latest time up to it. Whatever the entries' order, the first that is not
  /// before a time is the first here that is not.
  std::multimap<jobstore::GpsKey, TimelineEntry> byLatest_;
  std::vector<TimelineEntry> entries_;
  std::vector<ImplementSetup> implements_{1};
  std::vector<ProductNames> products_{1};
};

/// Reads a job's timeline. A table that cannot be queried is told to the host and
/// left out.
Timeline ReadTimeline(jobstore::Job& job, base::RunHost& host);

}  // namespace kestrin::boom
