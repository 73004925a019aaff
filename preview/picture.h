#pragma once

#include <cstdint>
#include <span>

namespace kestrin::preview {

/// A point of a picture in whole picture units: x to the right, y downwards, the
/// top left corner at 0, 0.
struct PicturePoint {
  std::int32_t x = 0;
  std::int32_t y = 0;

  friend bool operator==(const PicturePoint&, const PicturePoint&) = default;
};

/// A colour: 0xBBGGRR.
using Bgr = std::uint32_t;

/// What the previews draw on: the screen's picture area, or a list of calls in a test.
/// Sizes and points are in picture units; what lies outside the area is left out. What is
/// drawn is kept until the picture is cleared. Drawing does not fail.
class Picture {
 public:
  virtual ~Picture() = default;

  /// 0 or less when there is no area to draw on.
  virtual double Width() const = 0;
  virtual double Height() const = 0;
  bool HasArea() const { return Width() > 0 && Height() > 0; }

  /// Takes away what was kept, if anything, and paints the whole area in its ground
  /// colour, on the screen at once.
  virtual void Clear() = 0;

  /// Joins the points in order, without a line back to the first.
  virtual void Polyline(std::span<const PicturePoint> points, Bgr colour) = 0;

  /// Fills the points' outline and draws it, back to the first point.
  virtual void Polygon(std::span<const PicturePoint> points, Bgr fill, Bgr outline) = 0;

  virtual void Line(PicturePoint from, PicturePoint to, Bgr colour) = 0;

  /// The outline alone.
  virtual void Circle(PicturePoint centre, std::int32_t radius, Bgr colour) = 0;

  /// Brings what was drawn since to the screen.
  virtual void Refresh() = 0;
};

}  // namespace kestrin::preview
