#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "preview/picture.h"

namespace kestrin::widgets {

/// Remembers some of the lines and circles just drawn in one colour, so that one
/// drawn again can be left out: a long job covers each of a few pixels thousands of
/// times. It never takes a new shape for an old one; it may forget an old one.
class DrawnShapes {
 public:
  DrawnShapes() : slots_(std::make_unique<Slots>()) {}

  /// Whether the shape is remembered; from now on it is.
  bool Contains(preview::PicturePoint from, preview::PicturePoint to, std::int32_t radius) {
    Slot& slot = (*slots_)[IndexOf(from, to, radius)];
    const Slot shape{from, to, radius, round_};
    if (slot == shape) return true;
    slot = shape;
    return false;
  }

  /// Forgets all: something else was drawn over them.
  void Forget() { ++round_; }

 private:
  struct Slot {
    preview::PicturePoint from;
    preview::PicturePoint to;
    std::int32_t radius = 0;
    std::uint64_t round = 0;

    friend bool operator==(const Slot&, const Slot&) = default;
  };

  /// Few enough to stay in the processor's cache; what comes again comes soon.
  static constexpr int kIndexBits = 12;
  using Slots = std::array<Slot, std::size_t{1} << kIndexBits>;

  static std::uint64_t Packed(preview::PicturePoint point) {
    return std::uint64_t{static_cast<std::uint32_t>(point.x)} << 32 |
           static_cast<std::uint32_t>(point.y);
  }

  static std::size_t IndexOf(preview::PicturePoint from, preview::PicturePoint to,
                             std::int32_t radius) {
    const std::uint64_t mixed =
        Packed(from) * 0x9E3779B97F4A7C15u ^
        (Packed(to) + static_cast<std::uint32_t>(radius)) * 0xC2B2AE3D27D4EB4Fu;
    return static_cast<std::size_t>(mixed >> (64 - kIndexBits));
  }

  std::unique_ptr<Slots> slots_;
  std::uint64_t round_ = 1;
};

}  // namespace kestrin::widgets
