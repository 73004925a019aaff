#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "preview/picture.h"

namespace kestrin::test {

/// A picture that keeps the calls made on it, as texts: name, colours in hexadecimal, points,
/// radius. "Polygon A B 1,2 3,4 5,6" is filled in A and outlined in B. Reading its size is no
/// call.
class RecordingPicture : public preview::Picture {
 public:
  RecordingPicture() = default;
  RecordingPicture(double width, double height) : width_(width), height_(height) {}

  double Width() const override { return width_; }
  double Height() const override { return height_; }
  void Clear() override { calls.emplace_back("Clear"); }
  void Polyline(std::span<const preview::PicturePoint> points, preview::Bgr colour) override {
    Record("Polyline", {colour}, points);
  }
  void Polygon(std::span<const preview::PicturePoint> points, preview::Bgr fill,
               preview::Bgr outline) override {
    Record("Polygon", {fill, outline}, points);
  }
  void Line(preview::PicturePoint from, preview::PicturePoint to, preview::Bgr colour) override {
    Record("Line", {colour}, std::array{from, to});
  }
  void Circle(preview::PicturePoint centre, std::int32_t radius, preview::Bgr colour) override {
    Record("Circle", {colour}, std::array{centre});
    calls.back() += " " + std::to_string(radius);
  }
  void Refresh() override { calls.emplace_back("Refresh"); }

  /// The calls so far, which are then forgotten.
  std::vector<std::string> Take() { return std::exchange(calls, {}); }

  std::vector<std::string> calls;

 private:
  void Record(const char* name, std::initializer_list<preview::Bgr> colours,
              std::span<const preview::PicturePoint> points) {
    std::ostringstream call;
    call << name << std::hex << std::uppercase;
    for (const preview::Bgr colour : colours) call << ' ' << colour;
    call << std::dec;
    for (const preview::PicturePoint& point : points) call << ' ' << point.x << ',' << point.y;
    calls.push_back(call.str());
  }

  double width_ = 100;
  double height_ = 100;
};

}  // namespace kestrin::test
