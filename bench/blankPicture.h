#pragma once

#include <cstdint>
#include <span>

#include "preview/picture.h"

namespace kestrin::bench {

/// A picture that takes the calls and paints nothing.
class BlankPicture : public preview::Picture {
 public:
  double Width() const override { return 504; }
  double Height() const override { return 504; }
  void Clear() override {}
  void Polyline(std::span<const preview::PicturePoint>, preview::Bgr) override {}
  void Polygon(std::span<const preview::PicturePoint>, preview::Bgr, preview::Bgr) override {}
  void Line(preview::PicturePoint, preview::PicturePoint, preview::Bgr) override {}
  void Circle(preview::PicturePoint, std::int32_t, preview::Bgr) override {}
  void Refresh() override {}
};

}  // namespace kestrin::bench
