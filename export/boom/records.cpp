#include "export/boom/records.h"

#include <array>
#include <bit>
#include <cstdint>

#include "export/exportRun.h"

namespace kestrin::boom {
namespace {

bool SameBytes(const CrossLine& one, const CrossLine& other) {
  using Bits = std::array<std::uint64_t, sizeof(CrossLine) / sizeof(std::uint64_t)>;
  return std::bit_cast<Bits>(one) == std::bit_cast<Bits>(other);
}

}  // namespace

void Records::StartPeriod(std::size_t entry) {
  entry_ = entry;
  periodBegin_ = records_.size();
  indexed_ = periodBegin_;
  // Clearing would cost its largest size ever, for every period.
  if (!byRates_.empty()) byRates_ = {};
  wantsRecord_ = true;
}

void Records::Select(const ActualRateSet& rates) {
  if (!wantsRecord_ && records_[current_].rates != rates) wantsRecord_ = true;
  if (!wantsRecord_) return;
  if (records_.size() - periodBegin_ >= 2 && FindEarlier(rates)) return;
  current_ = records_.size();
  records_.push_back({entry_, rates, {}});
  slices_.push_back({laid_.Size(), {}});
}

bool Records::FindEarlier(const ActualRateSet& rates) {
  for (; indexed_ < records_.size(); ++indexed_) {
    byRates_.try_emplace(records_[indexed_].rates, indexed_);
  }
  const auto found = byRates_.find(rates);
  if (found == byRates_.end()) return false;
  current_ = found->second;
  return true;
}

void Records::Lay(const CrossLine& line) {
  if (current_ + 1 == records_.size()) {
    laid_.Append(line);
  } else {
    LayIntoEarlier(line);
  }
  for (geo::Box* box : {&records_[current_].box, &fileBox_}) {
    box->Widen(line.first);
    box->Widen(line.second);
  }
  wantsRecord_ = false;
}

void Records::LayIntoEarlier(const CrossLine& line) {
  Slice& slice = slices_[current_];
  if (slice.begin == 0) throw exports::SubscriptError();
  const CrossLine before = laid_[slice.begin - 1];
  if (!slice.gained.empty() && SameBytes(slice.gained.back().line, before)) {
    ++slice.gained.back().times;
  } else {
    slice.gained.push_back({before, 1});
  }
  laid_[EndOf(current_) - 1] = line;
}

std::size_t Records::LineCount(std::size_t record) const {
  std::size_t lines = EndOf(record) - slices_[record].begin;
  for (const Gained& gained : slices_[record].gained) lines += gained.times;
  return lines;
}

}  // namespace kestrin::boom
