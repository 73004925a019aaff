#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "export/net/core.h"
#include "export/net/runs.h"
#include "geo/box.h"

namespace kestrin::net {

/// What the cores of runs cover of a box. They cover a little less than the runs do.
class Cover {
 public:
  /// Of the runs with these indices into the list of all.
  Cover(const Runs& runs, std::span<const std::uint32_t> members, const geo::Box& box);

  /// Whether what lies in the box of a way from one point to another is covered.
  bool Hides(geo::UtmPoint from, geo::UtmPoint to) const;

 private:
  static constexpr std::size_t kCells = 16;  // a side

  std::size_t Column(double easting) const;
  std::size_t RowOfCells(double northing) const;
  void IndexCores();
  const Core* Farthest(geo::UtmPoint from, geo::UtmPoint to, double& part) const;

  geo::Box box_;
  std::vector<Core> cores_;
  // The cores of each cell, one cell's after another's.
  std::vector<std::uint32_t> cellEnds_;
  std::vector<std::uint32_t> cellCores_;
};

}  // namespace kestrin::net
