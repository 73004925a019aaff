#pragma once

#include <QRect>

namespace kestrin::widgets {

/// The unit the window and the job sheet are laid out in: 1440 to an inch.
inline constexpr int kTwipsPerPixel = 15;
inline constexpr int kTwipsPerInch = 1440;

/// A rectangle in twips, relative to its container.
struct TwipRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

/// The rectangle in window pixels (96 to an inch before the desktop's scaling).
constexpr QRect ToPixels(const TwipRect& twips) {
  return {twips.left / kTwipsPerPixel, twips.top / kTwipsPerPixel, twips.width / kTwipsPerPixel,
          twips.height / kTwipsPerPixel};
}

}  // namespace kestrin::widgets
