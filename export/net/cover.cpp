#include "export/net/cover.h"

#include <algorithm>
#include <array>

namespace kestrin::net {
namespace {

/// Steps by which a core reaches into the runs next to its own, so that cores overlap.
constexpr std::uint32_t kReach = 2;

/// Cuts a way to what lies in a box; false when nothing does.
bool Clip(const geo::Box& box, geo::UtmPoint& from, geo::UtmPoint& to) {
  const double east = to.easting - from.easting;
  const double north = to.northing - from.northing;
  double begin = 0;
  double end = 1;
  const auto cut = [&](double step, double room) {
    if (step == 0) return room >= 0;
    const double part = room / step;
    if (step > 0) {
      end = std::min(end, part);
    } else {
      begin = std::max(begin, part);
    }
    return begin <= end;
  };
  if (!cut(-east, from.easting - box.xMin) || !cut(east, box.xMax - from.easting) ||
      !cut(-north, from.northing - box.yMin) || !cut(north, box.yMax - from.northing)) {
    return false;
  }
  const geo::UtmPoint whole = from;
  from = {whole.easting + begin * east, whole.northing + begin * north};
  to = {whole.easting + end * east, whole.northing + end * north};
  return true;
}

}  // namespace

Cover::Cover(const Runs& runs, std::span<const std::uint32_t> members, const geo::Box& box)
    : box_(box) {
  for (const std::uint32_t member : members) {
    const Run& run = runs.All()[member];
    if (!run.regular) continue;
    const std::uint32_t before =
        run.goesOnBefore ? runs.All()[member - 1].last - runs.All()[member - 1].first : 0;
    const std::uint32_t after =
        run.goesOnAfter ? runs.All()[member + 1].last - runs.All()[member + 1].first : 0;
    const std::uint32_t last = run.goesOnAfter ? runs.All()[member + 1].first : run.last;
    const Core core(runs, run.span, run.first - std::min(before, kReach),
                    last + std::min(after, kReach));
    if (!core.IsEmpty() && core.Bounds().Overlaps(box)) cores_.push_back(core);
  }
  IndexCores();
}

std::size_t Cover::Column(double easting) const {
  const double at = (easting - box_.xMin) / (box_.xMax - box_.xMin) * kCells;
  return static_cast<std::size_t>(std::clamp(at, 0.0, kCells - 1.0));
}

std::size_t Cover::RowOfCells(double northing) const {
  const double at = (northing - box_.yMin) / (box_.yMax - box_.yMin) * kCells;
  return static_cast<std::size_t>(std::clamp(at, 0.0, kCells - 1.0));
}

void Cover::IndexCores() {
  const auto forEachCell = [this](auto take) {
    for (std::size_t core = 0; core < cores_.size(); ++core) {
      const geo::Box bounds = cores_[core].Bounds();
      const std::size_t lastRow = RowOfCells(bounds.yMax);
      const std::size_t lastColumn = Column(bounds.xMax);
      for (std::size_t row = RowOfCells(bounds.yMin); row <= lastRow; ++row) {
        for (std::size_t column = Column(bounds.xMin); column <= lastColumn; ++column) {
          take(row * kCells + column, static_cast<std::uint32_t>(core));
        }
      }
    }
  };
  std::array<std::uint32_t, kCells * kCells> counts{};
  forEachCell([&](std::size_t cell, std::uint32_t) { ++counts[cell]; });
  cellEnds_.resize(counts.size());
  std::uint32_t end = 0;
  for (std::size_t cell = 0; cell < counts.size(); ++cell) {
    cellEnds_[cell] = end;
    end += counts[cell];
  }
  cellCores_.resize(end);
  forEachCell([&](std::size_t cell, std::uint32_t core) { cellCores_[cellEnds_[cell]++] = core; });
}

/// Of the cores that hold the beginning of a way, the one that holds most of it.
const Core* Cover::Farthest(geo::UtmPoint from, geo::UtmPoint to, double& part) const {
  const Core* farthest = nullptr;
  part = 0;
  const std::size_t cell = RowOfCells(from.northing) * kCells + Column(from.easting);
  for (std::size_t i = cell == 0 ? 0 : cellEnds_[cell - 1]; i < cellEnds_[cell]; ++i) {
    const Core& core = cores_[cellCores_[i]];
    if (!core.Holds(from)) continue;
    const double inside = core.PartInside(from, to);
    if (inside <= part) continue;
    part = inside;
    farthest = &core;
    if (part >= 1) break;
  }
  return farthest;
}

bool Cover::Hides(geo::UtmPoint from, geo::UtmPoint to) const {
  if (!Clip(box_, from, to)) return true;
  // Each step takes at least a thousandth of what is left, or the way counts as open.
  constexpr double kLeast = 0.001;
  double part = 0;
  while (Farthest(from, to, part) != nullptr) {
    if (part >= 1) return true;
    if (part < kLeast) return false;
    from = {from.easting + part * (to.easting - from.easting),
            from.northing + part * (to.northing - from.northing)};
  }
  return false;
}

}  // namespace kestrin::net
