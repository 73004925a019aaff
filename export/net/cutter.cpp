#include "export/net/cutter.h"

#include <cmath>

#include "export/net/quad.h"

namespace kestrin::net {
namespace {

/// Long enough that there are few of them, short enough that a straight core lies in each
/// and that they fit into tiles.
constexpr std::uint32_t kMostSteps = 16;
constexpr double kLongest = 24;

/// How far the ends of a boom seem to move while it stands: the noise of the position, and that
/// of the heading, which the boom's width makes larger.
constexpr double kNoise = 0.04;
constexpr double kNoisePerWidth = 0.004;

double Length(geo::UtmPoint a, geo::UtmPoint b) {
  return std::hypot(b.easting - a.easting, b.northing - a.northing);
}

/// Whether two booms differ in direction by less than half a right angle.
bool Agree(const Boom& one, const Boom& other) {
  const double oneEast = one.right.easting - one.left.easting;
  const double oneNorth = one.right.northing - one.left.northing;
  const double otherEast = other.right.easting - other.left.easting;
  const double otherNorth = other.right.northing - other.left.northing;
  return oneEast * otherEast + oneNorth * otherNorth >
         std::fabs(oneEast * otherNorth - oneNorth * otherEast);
}

}  // namespace

void Cutter::Lay(std::uint32_t row, Span span) {
  if (!open_ || span != span_) {
    End();
    Begin(row - 1, span);
  }
  const Boom boom = track_.At(row, span);
  swept_ += Quad(boom_, boom).SquareMetres();
  row_ = row;
  boom_ = boom;
  if (!Stands(boom)) Step(row, boom);
}

void Cutter::Begin(std::uint32_t row, Span span) {
  open_ = true;
  span_ = span;
  row_ = row;
  boom_ = step_ = track_.At(row, span);
  direction_ = 0;
  rows_.push_back(row);
}

void Cutter::End() {
  if (open_ && row_ != rows_.back()) Step(row_, boom_);
  open_ = false;
}

bool Cutter::Stands(const Boom& boom) const {
  const double noise = kNoise + kNoisePerWidth * Length(boom.left, boom.right);
  return Length(step_.left, boom.left) <= noise && Length(step_.right, boom.right) <= noise;
}

void Cutter::Step(std::uint32_t row, const Boom& boom) {
  const int direction = Quad(step_, boom).Direction();
  const bool goesOn = direction != 0 && direction == direction_;
  if (!goesOn || !Fits(boom)) {
    if (goesOn) runs_.back().goesOnAfter = true;
    BeginRun(direction);
    runs_.back().goesOnBefore = goesOn;
  }
  direction_ = direction;
  rows_.push_back(row);
  Run& run = runs_.back();
  run.last = static_cast<std::uint32_t>(rows_.size() - 1);
  for (const geo::UtmPoint point : {boom.left, boom.right}) run.box.Widen(point);
  step_ = boom;
}

void Cutter::BeginRun(int direction) {
  Run& run = runs_.emplace_back();
  run.first = static_cast<std::uint32_t>(rows_.size() - 1);
  run.span = span_;
  run.regular = direction != 0;
  for (const geo::UtmPoint point : {step_.left, step_.right}) run.box.Widen(point);
  first_ = step_;
}

bool Cutter::Fits(const Boom& boom) const {
  return rows_.size() - runs_.back().first <= kMostSteps && Agree(first_, boom) &&
         Length(first_.left, boom.left) <= kLongest && Length(first_.right, boom.right) <= kLongest;
}

void Cutter::MoveInto(std::vector<Run>& runs, std::vector<std::uint32_t>& rows) {
  const auto before = static_cast<std::uint32_t>(rows.size());
  for (Run& run : runs_) {
    run.first += before;
    run.last += before;
  }
  runs.insert(runs.end(), runs_.begin(), runs_.end());
  rows.insert(rows.end(), rows_.begin(), rows_.end());
  runs_ = {};
  rows_ = {};
}

}  // namespace kestrin::net
