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

/// The wanted text colour, moved towards white or black just far enough to be read
/// on the background: a dark desktop keeps the hue, not the darkness.
QColor Readable(const QColor& wanted, const QColor& background);

/// Black or white, whichever reads better on the background.
QColor TextOn(const QColor& background);

}  // namespace kestrin::widgets
