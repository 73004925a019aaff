#pragma once

#include <cstdint>
#include <limits>
#include <optional>

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
  PictureMap(const PreviewExtent& extent, const Picture& picture) : extent_(extent) {
    if (extent.scale != 0) return;
    extent_.scale = 0.01;
    left_ = picture.Width() / 2;
    top_ = picture.Height() / 2;
  }

  /// The point in the picture, also outside of it.
  /// None when a coordinate is NaN, infinite, or beyond what a picture can count.
  std::optional<PicturePoint> At(geo::UtmPoint point) const {
    const double x = Rounded((point.easting - extent_.ground.xMin) / extent_.scale + left_);
    const double y = Rounded((extent_.ground.yMax - point.northing) / extent_.scale + top_);
    if (!Counts(x) || !Counts(y)) return std::nullopt;
    return PicturePoint{static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)};
  }

  /// Whether the point lies within the extent, its borders included.
  bool Covers(geo::UtmPoint point) const { return extent_.ground.Holds(point); }

 private:
  /// To the nearest whole number, halves to even. Beside so large a number a double
  /// has no place for a fraction; beyond it, no picture counts. A call of nearbyint
  /// for each of a job's many million section ends is what this spares.
  static double Rounded(double value) {
    constexpr double kNoFractions = 0x1.8p52;
    return (value + kNoFractions) - kNoFractions;
  }

  /// Whether the number fits a picture's units; NaN does not.
  static bool Counts(double value) {
    return value >= std::numeric_limits<std::int32_t>::min() &&
           value <= std::numeric_limits<std::int32_t>::max();
  }

  PreviewExtent extent_;
  /// Picture units.
  double left_ = 0;
  double top_ = 0;
};

}  // namespace kestrin::preview
