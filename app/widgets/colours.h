#pragma once

#include <QColor>

namespace kestrin::widgets {

/// A colour given as 0xBBGGRR.
constexpr QColor FromBgr(unsigned bgr) {
  return {static_cast<int>(bgr & 0xFFu), static_cast<int>(bgr >> 8 & 0xFFu),
          static_cast<int>(bgr >> 16 & 0xFFu)};
}

inline constexpr QColor kPaleYellow = FromBgr(0xE0FFFF);
inline constexpr QColor kGreen = FromBgr(0x00FF00);
inline constexpr QColor kRed = FromBgr(0x0000FF);
inline constexpr QColor kDarkRed = FromBgr(0x000080);
inline constexpr QColor kDarkBlue = FromBgr(0xC00000);
inline constexpr QColor kGrey = FromBgr(0x808080);
inline constexpr QColor kDarkGrey = FromBgr(0x404040);

/// How well two colours tell apart: 1 (equal) to 21 (black on white), by the
/// relative luminance of WCAG 2.
double Contrast(const QColor& one, const QColor& other);

/// Whether white reads better on the background than black.
bool IsDark(const QColor& background);

/// The design's colour for text, a line or a bar. Itself on a light background; on a
/// dark one moved towards white just far enough to be read: the hue is kept, not the
/// darkness.
QColor Readable(const QColor& wanted, const QColor& background);

/// The text colour of what is disabled: halfway to the background, or as far as it can
/// still be read.
QColor Faint(const QColor& text, const QColor& background);

/// Black or white, whichever reads better on the background.
QColor TextOn(const QColor& background);

}  // namespace kestrin::widgets
