#include "jobstore/opening/workBudget.h"

#include <algorithm>

namespace kestrin::opening {
namespace {

/// The program's widest query takes some 150 of the library's steps for a row, and
/// a row at least 6 bytes.
constexpr std::int64_t kStepsPerByte = 64;
constexpr std::int64_t kStepsAtLeast = 1'000'000;
constexpr int kStepsBetweenChecks = 10'000;
/// A page that is looked up counts as so many steps: rows that share one long chain of pages
/// take few of those, and read it all for each. An index leads to four pages a row at worst.
constexpr std::int64_t kStepsPerPage = 128;
/// Keeps the product in range; a file of this size is past every other limit.
constexpr std::uintmax_t kBytesAtMost = std::uintmax_t{1} << 50;

}  // namespace

WorkBudget::WorkBudget(std::uintmax_t bytes)
    : full_(kStepsAtLeast +
            kStepsPerByte * static_cast<std::int64_t>(std::min(bytes, kBytesAtMost))),
      left_(full_) {}

void WorkBudget::Watch(sqlite3* database) {
  database_ = database;
  sqlite3_progress_handler(database, kStepsBetweenChecks, Spend, this);
}

std::int64_t WorkBudget::PagesSinceLast() const {
  std::int64_t pages = 0;
  for (const int found : {SQLITE_DBSTATUS_CACHE_HIT, SQLITE_DBSTATUS_CACHE_MISS}) {
    int count = 0;
    int highest = 0;
    sqlite3_db_status(database_, found, &count, &highest, 1);
    pages += count;
  }
  return pages;
}

int WorkBudget::Spend(void* budget) {
  auto& self = *static_cast<WorkBudget*>(budget);
  if (self.meanwhile_) self.meanwhile_();
  self.left_ -= kStepsBetweenChecks + kStepsPerPage * self.PagesSinceLast();
  return self.left_ < 0 ? 1 : 0;
}

}  // namespace kestrin::opening
