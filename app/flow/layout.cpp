#include "app/flow/layout.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestrin::flow {
namespace {

constexpr float kSmallestScreenWidth = 800;
constexpr std::int16_t kSmallestScreenHeight = 600;

/// The nearest 16-bit number, halves to even; what lies beyond them takes the last.
std::int16_t Rounded16(double value) {
  using Limits = std::numeric_limits<std::int16_t>;
  const double bounded =
      std::clamp(value, static_cast<double>(Limits::min()), static_cast<double>(Limits::max()));
  return static_cast<std::int16_t>(std::nearbyint(bounded));
}

}  // namespace

ScreenSize MeasureScreen(double widthTwips, double heightTwips, double twipsPerPixelX,
                         double twipsPerPixelY) {
  return {static_cast<float>(widthTwips / twipsPerPixelX), Rounded16(heightTwips / twipsPerPixelY)};
}

bool TakesWholeScreen(const ScreenSize& screen) {
  return screen.width < kSmallestScreenWidth || screen.height < kSmallestScreenHeight;
}

Layout LayOut(const LayoutInput& in) {
  Layout out;
  BarLayout& vertical = out.vertical;
  BarLayout& horizontal = out.horizontal;
  vertical.visible = in.clientWidth < kDesignWidth;
  horizontal.visible = in.clientHeight < kDesignHeight;

  if (vertical.visible) {
    vertical.offset = in.clientWidth - in.verticalBarWidth;
    vertical.length = in.clientHeight - (horizontal.visible ? in.horizontalBarHeight : 0);
  }
  if (horizontal.visible) {
    horizontal.offset = in.clientHeight - in.horizontalBarHeight;
    horizontal.length = in.clientWidth - (vertical.visible ? in.verticalBarWidth : 0);
  }
  if (vertical.visible && horizontal.visible) {
    out.corner = CornerLayout{.left = *horizontal.length, .top = *vertical.length};
  }

  vertical.maximum =
      Rounded16(std::abs(in.pictureHeight - in.clientHeight + in.horizontalBarHeight));
  horizontal.maximum = Rounded16(std::abs(in.pictureWidth - in.clientWidth + in.verticalBarWidth));
  return out;
}

}  // namespace kestrin::flow
