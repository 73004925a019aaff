#pragma once

#include <cstdint>
#include <optional>

namespace kestrin::flow {

/// The client area up to which everything shows without scroll bars, in pixels.
inline constexpr int kDesignWidth = 792;
inline constexpr int kDesignHeight = 540;

struct ScreenSize {
  float width = 0;          ///< pixels
  std::int16_t height = 0;  ///< pixels
};

/// The screen in pixels from its size in twips and the twips of a pixel, per axis.
ScreenSize MeasureScreen(double widthTwips, double heightTwips, double twipsPerPixelX,
                         double twipsPerPixelY);

/// Whether the window must take the whole screen's size: narrower than 800 or
/// lower than 600 pixels.
bool TakesWholeScreen(const ScreenSize& screen);

/// What a window's size asks of its scroll bars. Pixels throughout.
struct LayoutInput {
  double clientWidth = 0;
  double clientHeight = 0;
  double pictureWidth = kDesignWidth;    ///< Picture2
  double pictureHeight = kDesignHeight;  ///< Picture2
  double verticalBarWidth = 0;           ///< VScroll1
  double horizontalBarHeight = 0;        ///< HScroll1
};

/// A scroll bar's part of the layout; what has no value stays as it is.
struct BarLayout {
  /// A bar that is hidden goes back to value 0.
  bool visible = false;
  /// Left of the vertical, top of the horizontal bar.
  std::optional<double> offset;
  /// Height of the vertical, width of the horizontal bar.
  std::optional<double> length;
  std::int16_t maximum = 0;
};

struct CornerLayout {
  double left = 0;
  double top = 0;
};

struct Layout {
  BarLayout vertical;    ///< VScroll1
  BarLayout horizontal;  ///< HScroll1
  /// Frame3 between the two bars; hidden when there is none.
  std::optional<CornerLayout> corner;
};

/// The scroll bars of a window that is not minimised. The vertical bar answers to
/// the width and the horizontal one to the height: the window has always done so.
Layout LayOut(const LayoutInput& input);

}  // namespace kestrin::flow
