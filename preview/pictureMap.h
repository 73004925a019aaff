#pragma once

#include <cstdint>
#include <limits>
#include <optional>

#include "geo/box.h"
#include "geo/points.h"
#include "preview/picture.h"
#include "preview/previewExtent.h"

namespace kestrin::preview {

/// Where points of the ground, in UTM metres, lie in a picture: north is up, and picture
/// units are rounded to whole ones, halves to even.
class PictureMap {
 public:
  /// An extent without a scale, the one point of a job that has no more, comes to lie in the
  /// middle of the picture, at a centimetre a picture unit.
  PictureMap(const PreviewExtent& extent, const Picture& picture)
      : ground_(extent.ground),
        origin_{extent.ground.xMin, extent.ground.yMax},
        scale_{extent.scale, -extent.scale} {
    if (extent.scale != 0) return;
    scale_ = Pair{0.01, -0.01};
    before_ = Pair{picture.Width() / 2, picture.Height() / 2};
  }

  /// The point in the picture, also outside of it.
  /// None when a coordinate is NaN, infinite, or beyond what a picture can count.
  std::optional<PicturePoint> At(geo::UtmPoint point) const {
    PicturePoint place;
    return Find(point, place) ? std::optional(place) : std::nullopt;
  }

  /// The same into a given place, for a job's many million section ends: an optional takes as
  /// long as all else that is done for one. False, and the place as it was, when there is none.
  [[nodiscard]] bool Find(geo::UtmPoint point, PicturePoint& place) const {
    const Pair units = Rounded((Pair{point.easting, point.northing} - origin_) / scale_ + before_);
    if (!Fit(units)) return false;
    place = {static_cast<std::int32_t>(units[0]), static_cast<std::int32_t>(units[1])};
    return true;
  }

  /// Whether the point lies within the extent, its borders included.
  bool Covers(geo::UtmPoint point) const { return ground_.Holds(point); }

 private:
  /// Across and down, which the processor computes at once.
  using Pair = double __attribute__((vector_size(16)));

  /// To the nearest whole numbers, halves to even. Beside so large a number a double has no
  /// place for a fraction; beyond it, no picture counts. A call of nearbyint is what this spares.
  static Pair Rounded(Pair value) {
    constexpr Pair kNoFractions{0x1.8p52, 0x1.8p52};
    return (value + kNoFractions) - kNoFractions;
  }

  /// Whether both fit a picture's units; NaN does not.
  static bool Fit(Pair units) {
    constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr double kMost = std::numeric_limits<std::int32_t>::max();
    const auto fit = (units >= Pair{kLeast, kLeast}) & (units <= Pair{kMost, kMost});
    return (fit[0] & fit[1]) != 0;
  }

  geo::Box ground_;
  Pair origin_;        // the ground's upper left corner
  Pair scale_;         // metres a picture unit
  Pair before_{0, 0};  // picture units to the origin
};

}  // namespace kestrin::preview
