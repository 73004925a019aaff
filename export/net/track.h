#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/runHost.h"
#include "export/ground/strip.h"
#include "export/net/setups.h"
#include "geo/heading.h"
#include "geo/points.h"

namespace kestrin::net {

/// The line across the ground that is worked on at a row.
using Boom = ground::Boom;

/// Sections that work as one: side by side, from a first one to a last.
struct Span {
  std::uint8_t from = 0;
  std::uint8_t to = 0;

  friend bool operator==(const Span&, const Span&) = default;
};

/// What a track did not take, for it cannot be true.
struct LeftOut {
  std::int64_t rows = 0;   ///< without a place, a heading or a width that are numbers
  std::int64_t jumps = 0;  ///< of more than a kilometre between two rows of a stretch
};

/// The rows of a job, as the net ground needs them: 40 bytes each.
///
/// Ground is worked between two consecutive rows of a stretch by every section that is on at
/// both. A job in which no row has a section on has not recorded them: there, and where all
/// sections are asked for, the whole implement works all the time.
class Track {
 public:
  /// The setups must outlive it.
  Track(const Setups& setups, bool allSections) : setups_(setups), allSections_(allSections) {}

  /// Takes the next row; `begins` when it begins a stretch. One that cannot be true is
  /// left out, and its neighbours become consecutive; a jump ends a stretch.
  void Add(geo::UtmPoint antenna, double yaw, std::uint32_t setup, std::int32_t sectionsOn,
           bool begins);

  const LeftOut& Missing() const { return missing_; }

  /// Calls `take(row, span)`, row by row, for each span that works from the row before up to
  /// `row`. Sections are joined to spans where both rows have the same setup. Yields in between.
  template <class Take>
  void ForEachStep(base::RunHost& host, Take take) const {
    constexpr std::uint32_t kRowsBetweenYields = 1024;
    std::vector<Span> spans;
    for (std::uint32_t row = 1; row < rows_.size(); ++row) {
      if (row % kRowsBetweenYields == 0) host.Yield();
      if (!GoesOnAsBefore(row)) spans = WorkingUpTo(row);
      for (const Span& span : spans) take(row, span);
    }
  }

  Boom At(std::uint32_t row, Span span) const;

 private:
  struct Row {
    geo::UtmPoint antenna;
    geo::Heading heading{0};
    std::uint32_t setup = 0;
    std::uint16_t sectionsOn = 0;
    bool begins = false;
  };

  bool BySection() const { return sectionsRecorded_ && !allSections_; }
  bool IsOn(const Row& row, std::uint8_t section) const;
  bool GoesOnAsBefore(std::size_t row) const;
  std::vector<Span> WorkingUpTo(std::size_t row) const;

  const Setups& setups_;
  bool allSections_;
  bool sectionsRecorded_ = false;
  bool begins_ = false;  // a stretch, with the next row taken
  std::vector<Row> rows_;
  LeftOut missing_;
};

}  // namespace kestrin::net
