#pragma once

#include <QColor>
#include <optional>
#include <span>

#include "app/widgets/fonts.h"
#include "app/widgets/twips.h"

namespace kestrin::window {

enum class ControlKind {
  kBox,       ///< plain box in the window's colour
  kFrame,     ///< container with border, caption and input gate
  kButton,    ///< push button with a background colour
  kOption,    ///< option button
  kCentred,   ///< one-line text, centred
  kBordered,  ///< one-line text in a border, or only that: round a bar or the picture
  kBar,       ///< fill of a progress bar
  kLine,      ///< grey line
  kPicture,   ///< preview area
  kImage,     ///< logo
  kVScroll,
  kHScroll,
};

/// One control of the window at design.
struct ControlSpec {
  const char* name = "";    ///< object name; arrays as name_index
  const char* parent = "";  ///< object name of its container; empty: the window
  ControlKind kind{};
  widgets::TwipRect place;  ///< relative to the container
  const char* caption = "";
  /// What it is or does in words, for assistive tools; not on what only decorates.
  const char* words = "";
  widgets::FontSpec font = {};
  std::optional<QColor> colour = std::nullopt;  ///< nothing: the desktop's
  bool visible = true;
};

/// Every control of the window, containers before what they hold, what lies
/// underneath before what lies above it, focus in this order.
std::span<const ControlSpec> LayoutTable();

}  // namespace kestrin::window
