#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "geo/localOffsets.h"
#include "jobstore/changeCursor.h"
#include "jobstore/queries.h"
#include "preview/pictureMap.h"

namespace kestrin::preview {

/// A vehicle's heading, turned into the direction across it.
class Heading {
 public:
  /// `yaw` in radians, clockwise from north.
  explicit Heading(double yaw);

  /// The line across the heading, `width` metres long about its centre, from its
  /// right end to its left.
  GroundLine Across(GroundPoint centre, double width) const {
    const double half = width / 2;
    return {{centre.x + half * cos_, centre.y - half * sin_},
            {centre.x - half * cos_, centre.y + half * sin_}};
  }

 private:
  double cos_;
  double sin_;
};

/// The implement as the previews follow it: the first one from the start, every
/// later one, the last included, from its own time on.
class PreviewImplement {
 public:
  explicit PreviewImplement(jobstore::Job& job);

  /// Whether the job has an implement at all.
  bool HasCurrent() const { return cursor_.HasCurrent(); }

  void AdvanceTo(jobstore::GpsKey time);

  /// Metres: the sum of the positive section widths.
  double Width() const { return width_; }

  /// Calls `onLine(line)` for each section of positive width: where it lies at an
  /// epoch. Its offsets are added as stored, not turned with the heading.
  template <class OnLine>
  void ForEachSection(geo::UtmPoint vehicle, double yaw, OnLine onLine) const {
    if (used_ == 0) return;
    const Heading heading(yaw);
    for (const jobstore::Section& section : std::span(sections_).first(used_)) {
      onLine(heading.Across({vehicle.easting + section.xOffset, vehicle.northing + section.yOffset},
                            section.width));
    }
  }

 private:
  void Take(const jobstore::ImplementRow& row);

  jobstore::ChangeCursor<jobstore::Implements> cursor_;
  std::array<jobstore::Section, jobstore::kSectionSlots> sections_{};
  std::size_t used_ = 0;
  double width_ = 0;
};

}  // namespace kestrin::preview
