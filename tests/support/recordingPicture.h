#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "preview/picture.h"

namespace kestrin::test {

/// A picture that keeps the calls made on it, as texts: "Line 1,2 3,4". Reading its
/// size or its colours is no call.
class RecordingPicture : public preview::Picture {
 public:
  RecordingPicture() = default;
  RecordingPicture(double width, double height) : width_(width), height_(height) {}

  double Width() const override { return width_; }
  double Height() const override { return height_; }
  std::uint32_t ForeColor() const override { return foreColor_; }
  void SetForeColor(std::uint32_t bgr) override {
    foreColor_ = bgr;
    calls.push_back("ForeColor " + std::to_string(bgr));
  }
  std::uint32_t FillColor() const override { return fillColor_; }
  void SetFillColor(std::uint32_t bgr) override {
    fillColor_ = bgr;
    calls.push_back("FillColor " + std::to_string(bgr));
  }
  void RemovePicture() override { calls.emplace_back("RemovePicture"); }
  void Clear() override { calls.emplace_back("Clear"); }
  void Polyline(std::span<const preview::PicturePoint> points) override {
    calls.push_back("Polyline" + Text(points));
  }
  void Polygon(std::span<const preview::PicturePoint> points) override {
    calls.push_back("Polygon" + Text(points));
  }
  void Line(preview::PicturePoint from, preview::PicturePoint to) override {
    calls.push_back("Line" + Text(std::array{from, to}));
  }
  void Circle(preview::PicturePoint centre, std::int32_t radius) override {
    calls.push_back("Circle" + Text(std::array{centre}) + " " + std::to_string(radius));
  }
  void Refresh() override { calls.emplace_back("Refresh"); }

  /// The calls so far, which are then forgotten.
  std::vector<std::string> Take() { return std::exchange(calls, {}); }

  std::vector<std::string> calls;

 private:
  static std::string Text(std::span<const preview::PicturePoint> points) {
    std::string text;
    for (const preview::PicturePoint& point : points) {
      text += " " + std::to_string(point.x) + "," + std::to_string(point.y);
    }
    return text;
  }
  double width_ = 100;
  double height_ = 100;
  std::uint32_t foreColor_ = 1;
  std::uint32_t fillColor_ = 2;
};

}  // namespace kestrin::test
