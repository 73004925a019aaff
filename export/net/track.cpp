#include "export/net/track.h"

#include <cmath>

namespace kestrin::net {
namespace {

constexpr double kLongestStep = 1000;

/// More metres than any plane of a zone has. Beyond, too few digits are left for
/// millimetres.
constexpr double kLargestCoordinate = 1e8;

}  // namespace

void Track::Add(geo::UtmPoint antenna, double yaw, std::uint32_t setup, std::int32_t sectionsOn,
                bool begins) {
  begins_ = begins_ || begins || rows_.empty();
  if (!(std::fabs(antenna.easting) <= kLargestCoordinate &&
        std::fabs(antenna.northing) <= kLargestCoordinate) ||
      !std::isfinite(yaw) || !setups_[setup].IsBelievable()) {
    ++missing_.rows;
    return;
  }
  if (!begins_ && std::hypot(antenna.easting - rows_.back().antenna.easting,
                             antenna.northing - rows_.back().antenna.northing) > kLongestStep) {
    ++missing_.jumps;
    begins_ = true;
  }
  const auto on = static_cast<std::uint16_t>(sectionsOn);
  sectionsRecorded_ = sectionsRecorded_ || on != 0;
  rows_.push_back({antenna, geo::Heading(yaw), setup, on, begins_});
  begins_ = false;
}

bool Track::IsOn(const Row& row, std::uint8_t section) const {
  if (BySection() ? (row.sectionsOn >> section & 1) == 0 : section != Setup::kWhole) return false;
  return setups_[row.setup][section].HasWidth();
}

std::vector<Span> Track::WorkingUpTo(std::size_t row) const {
  const Row& from = rows_[row - 1];
  const Row& to = rows_[row];
  const Setup& setup = setups_[to.setup];
  const bool joins = from.setup == to.setup && BySection();
  const auto works = [&](std::uint8_t section) {
    return section != Setup::kNone && IsOn(from, section) && IsOn(to, section);
  };
  std::vector<Span> spans;
  if (to.begins) return spans;
  for (std::uint8_t section = 0; section <= Setup::kWhole; ++section) {
    if (!works(section) || (joins && works(setup.LeftOf(section)))) continue;
    Span span{section, section};
    while (joins && works(setup.RightOf(span.to))) span.to = setup.RightOf(span.to);
    spans.push_back(span);
  }
  return spans;
}

bool Track::GoesOnAsBefore(std::size_t row) const {
  const auto same = [](const Row& one, const Row& other) {
    return one.setup == other.setup && one.sectionsOn == other.sectionsOn;
  };
  return row > 1 && !rows_[row].begins && !rows_[row - 1].begins &&
         same(rows_[row - 2], rows_[row - 1]) && same(rows_[row - 1], rows_[row]);
}

Boom Track::At(std::uint32_t row, Span span) const {
  const Row& at = rows_[row];
  const Setup& setup = setups_[at.setup];
  const geo::UtmPoint middle = at.heading.AheadOf(at.antenna, setup[span.from].ahead);
  return {at.heading.RightOf(middle, setup[span.from].left),
          at.heading.RightOf(middle, setup[span.to].right)};
}

}  // namespace kestrin::net
