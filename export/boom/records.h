#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <unordered_map>
#include <vector>

#include "export/boom/crossLines.h"
#include "geo/box.h"
#include "jobstore/queries.h"

namespace kestrin::boom {

using ActualRateSet = std::array<double, jobstore::kProductSlots>;

/// For equality as the compiler sees it: 0 and -0 are one value.
struct ActualRateHash {
  std::size_t operator()(const ActualRateSet& rates) const {
    std::size_t hash = 0;
    for (const double rate : rates) hash = hash * 1000003 + std::hash<double>()(rate);
    return hash;
  }
};

/// The records of a boom set: which cross-line belongs to which, and in what order.
///
/// All records share one list of cross-lines, each owning a slice of it. The last
/// record grows at its end. An earlier record that is taken up again grows oddly,
/// and tools that read the sets have come to depend on it: for each new line
/// everything from one line before its slice to the end of the list moves up by one
/// place, and the new line is written over the last one of its slice. The slice so
/// gains a copy of the line before it at its front and loses its last line; the
/// slices behind it stay whole.
///
/// Here nothing moves. The lines that arrived at the end stay where they were laid,
/// the last line of a slice is overwritten in place, and what a record gained at
/// its front is counted: it is always the last line of the nearest earlier record
/// that has any, as that is at the time.
class Records {
 public:
  struct Record {
    std::size_t entry = 0;  ///< of the timeline
    ActualRateSet rates{};
    geo::Box box;  ///< of all points laid into it, also those overwritten since
  };

  /// Begins a period of the timeline: its records are looked for among themselves.
  void StartPeriod(std::size_t entry);

  /// Decides the record of an epoch: the current one as long as its rates stay; the
  /// oldest of the period with these rates once it has two; else a new one. A
  /// record into which no line was laid is never simply kept.
  void Select(const ActualRateSet& rates);

  /// Lays a line into the selected record.
  /// Failure: SubscriptError when the record is not the last and no line lies before its slice.
  void Lay(const CrossLine& line);

  std::size_t Count() const { return records_.size(); }
  const Record& operator[](std::size_t record) const { return records_[record]; }

  /// Of all points in the order laid, also those overwritten since.
  const geo::Box& FileBox() const { return fileBox_; }

  /// Lines of a record's slice.
  std::size_t LineCount(std::size_t record) const;

  /// Hands the lines of a record's slice to `take`, in order and piece by piece:
  /// take(std::span<const CrossLine>).
  template <class Take>
  void ForEachPiece(std::size_t record, Take take) const;

 private:
  /// A line that a slice gained at its front, as many times as it did in a row.
  struct Gained {
    CrossLine line;
    std::size_t times = 0;
  };
  struct Slice {
    std::size_t begin = 0;       ///< in laid_; ends where the next record's begins
    std::vector<Gained> gained;  ///< the oldest first: the last stands in front
  };

  std::size_t EndOf(std::size_t record) const {
    return record + 1 < slices_.size() ? slices_[record + 1].begin : laid_.Size();
  }
  bool FindEarlier(const ActualRateSet& rates);
  void LayIntoEarlier(const CrossLine& line);

  CrossLineList laid_;
  std::vector<Record> records_;
  std::vector<Slice> slices_;
  geo::Box fileBox_;

  std::size_t entry_ = 0;
  std::size_t periodBegin_ = 0;
  std::size_t current_ = 0;
  bool wantsRecord_ = true;

  /// The period's oldest record of each rates, for the records before indexed_.
  std::unordered_map<ActualRateSet, std::size_t, ActualRateHash> byRates_;
  std::size_t indexed_ = 0;
};

template <class Take>
void Records::ForEachPiece(std::size_t record, Take take) const {
  const Slice& slice = slices_[record];
  // NOLINTNEXTLINE(modernize-loop-convert): Clang 14 does not know the library's reversed view.
  for (auto gained = slice.gained.rbegin(); gained != slice.gained.rend(); ++gained) {
    for (std::size_t i = 0; i < gained->times; ++i) take(std::span(&gained->line, 1));
  }
  for (std::size_t at = slice.begin; at < EndOf(record);) {
    const std::span<const CrossLine> piece = laid_.Piece(at, EndOf(record));
    take(piece);
    at += piece.size();
  }
}

}  // namespace kestrin::boom
