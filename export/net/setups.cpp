#include "export/net/setups.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "export/tableRows.h"

namespace kestrin::net {
namespace {

constexpr double kFarthest = 1000;

/// Widths and offsets are recorded to about a millimetre; sections that miss each other by no
/// more than this are side by side.
constexpr double kJoint = 0.002;

/// Not true of what is no number.
bool IsNear(const Section& section) {
  return std::fabs(section.left) <= kFarthest && std::fabs(section.right) <= kFarthest &&
         std::fabs(section.ahead) <= kFarthest;
}

/// How far apart an offset of the sections reaches.
double Reach(const jobstore::ImplementRow& row, double jobstore::Section::*offset) {
  double min = HUGE_VAL;
  double max = -HUGE_VAL;
  for (const jobstore::Section& section : row.sections) {
    if (!(section.width > 0)) continue;
    min = std::min(min, section.*offset);
    max = std::max(max, section.*offset);
  }
  return max - min;
}

}  // namespace

Setup::Setup(const jobstore::ImplementRow& row) {
  const bool xAcross =
      Reach(row, &jobstore::Section::xOffset) > Reach(row, &jobstore::Section::yOffset);
  double width = 0;
  for (std::size_t slot = 0; slot < row.sections.size(); ++slot) {
    const jobstore::Section& section = row.sections[slot];
    if (!(section.width > 0)) continue;
    const double across = xAcross ? section.xOffset : section.yOffset;
    sections_[slot] = {across - section.width / 2, across + section.width / 2,
                       xAcross ? section.yOffset : section.xOffset};
    width += section.width;
  }
  sections_[kWhole] = {-width / 2, width / 2, 0};
  FindNeighbours();
}

void Setup::FindNeighbours() {
  const auto touch = [](const Section& one, const Section& other) {
    return one.HasWidth() && other.HasWidth() && one.left < other.left && one.right < other.right &&
           std::fabs(other.left - one.right) <= kJoint &&
           std::fabs(other.ahead - one.ahead) <= kJoint;
  };
  left_.fill(kNone);
  right_.fill(kNone);
  for (std::uint8_t one = 0; one < kWhole; ++one) {
    for (std::uint8_t other = 0; other < kWhole && right_[one] == kNone; ++other) {
      if (left_[other] != kNone || !touch(sections_[one], sections_[other])) continue;
      right_[one] = other;
      left_[other] = one;
    }
  }
}

bool Setup::IsBelievable() const { return std::ranges::all_of(sections_, IsNear); }

void Setups::Add(const jobstore::ImplementRow& row) {
  if (times_.empty()) setups_.clear();
  times_.push_back(row.time);
  setups_.emplace_back(row);
}

std::uint32_t Setups::At(jobstore::GpsKey time) {
  while (inForce_ + 1 < times_.size() && times_[inForce_ + 1] <= time) ++inForce_;
  return inForce_;
}

Setups ReadSetups(jobstore::Job& job, base::RunHost& host) {
  Setups setups;
  exports::ForEachRow<jobstore::Implements>(
      job, host, [&](const jobstore::ImplementRow& row) { setups.Add(row); });
  return setups;
}

}  // namespace kestrin::net
