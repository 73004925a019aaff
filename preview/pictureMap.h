#pragma once

#include <cstdint>
#include <limits>
#include <optional>

#include "preview/picture.h"
#include "preview/previewState.h"

namespace kestrin::preview {

/// A point or a line of the ground, in metres of the working plane.
struct GroundPoint {
  double x = 0;
  double y = 0;

  bool IsFinite() const;
};
struct GroundLine {
  GroundPoint from;
  GroundPoint to;
};

/// Whether the picture has any area to draw on.
bool HasArea(const Picture& picture);

/// Where ground points lie in a picture. North is up; picture units are rounded to
/// whole ones, halves to even.
class PictureMap {
 public:
  /// Metres per picture unit where the extent has no scale; its point then lies in
  /// the middle of the picture.
  static constexpr double kNominalScale = 0.01;

  PictureMap(const PreviewExtent& extent, const Picture& picture);

  /// The point in the picture, also outside of it; none when a coordinate is NaN,
  /// infinite, or beyond what a picture can count.
  std::optional<PicturePoint> At(GroundPoint point) const {
    const double x = Rounded((point.x - extent_.xMin) / scale_ + left_);
    const double y = Rounded((extent_.yMax - point.y) / scale_ + top_);
    if (!Counts(x) || !Counts(y)) return std::nullopt;
    return PicturePoint{static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)};
  }

  /// Whether the point lies within the extent, its borders included.
  bool Covers(GroundPoint point) const {
    return extent_.xMin <= point.x && point.x <= extent_.xMax && extent_.yMin <= point.y &&
           point.y <= extent_.yMax;
  }

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
  double scale_;
  double left_ = 0;
  double top_ = 0;
};

}  // namespace kestrin::preview
