#pragma once

#include <QFont>

namespace kestrin::widgets {

enum class Face { kSansSerif, kMicrosoftSansSerif, kArial, kTimes };

/// A font of the design: its face, its size in quarters of a point and its weight.
struct FontSpec {
  Face face = Face::kSansSerif;
  int quarterPoints = 33;
  bool bold = true;
};

/// 8.25 and 9.75 points: 11 and 13 pixels at 96 to the inch.
inline constexpr int kSmall = 33;
inline constexpr int kLarge = 39;

/// The font, sized in units of so many to the inch, window pixels unless told otherwise:
/// captions keep their proportion to the layout whatever text size the desktop asks for;
/// scaling enlarges both. Where a face is missing, one of the same widths takes its place.
QFont DesignFont(const FontSpec& spec, int unitsPerInch = 96);

/// The font narrowed until the text is at most `width` wide; unchanged when it
/// fits already.
QFont Fitted(const QFont& font, const QString& text, int width);

}  // namespace kestrin::widgets
