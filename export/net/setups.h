#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "base/runHost.h"
#include "jobstore/gpsKey.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin::net {

/// A part of the implement: metres from the antenna, across and along the heading.
struct Section {
  double left = 0;
  double right = 0;
  double ahead = 0;

  bool HasWidth() const { return right > left; }
};

/// What one row of the implement table says of the ground that is worked. A section counts
/// when its width is positive. Unlike the widths of the coverage polygons, those of other rows
/// add nothing.
///
/// Sections lie side by side across the machine and turn with it. (The boom set keeps their
/// offsets to east and north whatever the heading. On a pass to the north the sections would
/// then lie one behind another, and most of the ground would be missing.) Which of the two
/// offsets runs across is not recorded: it is X where the X offsets reach farther apart than the
/// Y offsets, so that X ahead and Y to the right is the usual case.
class Setup {
 public:
  Setup() = default;
  explicit Setup(const jobstore::ImplementRow& row);

  static constexpr std::uint8_t kNone = 0xFF;
  /// The number of the whole implement: as wide as its sections together, in the vehicle's
  /// middle.
  static constexpr std::uint8_t kWhole = jobstore::kSectionSlots;

  const Section& operator[](std::uint8_t section) const { return sections_[section]; }

  /// The section that begins, to the millimetres of its offsets, where this one ends, and the
  /// one that ends where this one begins; or kNone.
  std::uint8_t RightOf(std::uint8_t section) const { return right_[section]; }
  std::uint8_t LeftOf(std::uint8_t section) const { return left_[section]; }

  /// Whether all of it lies within a kilometre of the antenna. No machine is larger; what
  /// is, or is no number, was recorded wrongly.
  bool IsBelievable() const;

 private:
  void FindNeighbours();

  std::array<Section, jobstore::kSectionSlots + 1> sections_;
  std::array<std::uint8_t, jobstore::kSectionSlots + 1> left_{};
  std::array<std::uint8_t, jobstore::kSectionSlots + 1> right_{};
};

/// A job's setups over GPS time.
class Setups {
 public:
  void Add(const jobstore::ImplementRow& row);

  const Setup& operator[](std::uint32_t index) const { return setups_[index]; }

  /// The number of the setup in force: that of the last row not later, of the first row
  /// before that, and one without sections where there is no row. Times must not go back.
  std::uint32_t At(jobstore::GpsKey time);

 private:
  std::vector<jobstore::GpsKey> times_;
  std::vector<Setup> setups_{1};
  std::uint32_t inForce_ = 0;
};

/// Reads a job's setups.
/// Failure: a table that cannot be queried is told to the host, and there are no sections.
Setups ReadSetups(jobstore::Job& job, base::RunHost& host);

}  // namespace kestrin::net
