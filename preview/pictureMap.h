#pragma once

#include <optional>

#include "preview/picture.h"
#include "preview/previewState.h"

namespace kestrin {

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
  std::optional<PicturePoint> At(GroundPoint point) const;

  /// Whether the point lies within the extent, its borders included.
  bool Covers(GroundPoint point) const {
    return extent_.xMin <= point.x && point.x <= extent_.xMax && extent_.yMin <= point.y &&
           point.y <= extent_.yMax;
  }

 private:
  PreviewExtent extent_;
  double scale_;
  double left_ = 0;
  double top_ = 0;
};

}  // namespace kestrin
