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

/// What the previews draw on: the screen's picture area, or a list of calls in a
/// test. Lines, outlines and circles take ForeColor, a polygon's inside FillColor;
/// colours are BGR (0xBBGGRR). What is drawn is kept until it is removed.
class Picture {
 public:
  virtual ~Picture() = default;

  /// Size in picture units; 0 or less when there is no area to draw on.
  virtual double Width() const = 0;
  virtual double Height() const = 0;

  virtual std::uint32_t ForeColor() const = 0;
  virtual void SetForeColor(std::uint32_t bgr) = 0;
  virtual std::uint32_t FillColor() const = 0;
  virtual void SetFillColor(std::uint32_t bgr) = 0;

  /// Takes away the picture that was set or kept, if any.
  virtual void RemovePicture() = 0;

  /// Paints the whole area in its ground colour, on the screen at once.
  virtual void Clear() = 0;

  /// Joins the points in order, without a line back to the first.
  virtual void Polyline(std::span<const PicturePoint> points) = 0;

  /// Fills the points' outline and draws it, back to the first point.
  virtual void Polygon(std::span<const PicturePoint> points) = 0;

  virtual void Line(PicturePoint from, PicturePoint to) = 0;
  virtual void Circle(PicturePoint centre, std::int32_t radius) = 0;

  /// Brings what was drawn since to the screen.
  virtual void Refresh() = 0;
};

}  // namespace kestrin::preview
