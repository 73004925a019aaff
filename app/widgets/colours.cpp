#include "app/widgets/colours.h"

#include <algorithm>
#include <cmath>

namespace kestrin::widgets {

namespace {

constexpr double kReadableContrast = 3.5;

double Linear(float part) {
  const auto channel = static_cast<double>(part);
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
         0.0722 * Linear(colour.blueF());
}

/// The colour with its lightness moved towards black or white.
QColor Lightened(const QColor& colour, bool towardsWhite, int percent) {
  const float goal = towardsWhite ? 1.0F : 0.0F;
  const float lightness = colour.lightnessF();
  const float moved = lightness + (goal - lightness) * static_cast<float>(percent) / 100.0F;
  return QColor::fromHslF(colour.hslHueF(), colour.hslSaturationF(), moved);
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor Readable(const QColor& wanted, const QColor& background) {
  if (Contrast(wanted, background) >= kReadableContrast) return wanted;
  const bool towardsWhite = TextOn(background) == QColor(255, 255, 255);
  QColor colour = wanted;
  for (int percent = 5; percent <= 100; percent += 5) {
    colour = Lightened(wanted, towardsWhite, percent);
    if (Contrast(colour, background) >= kReadableContrast) break;
  }
  return colour;
}

QColor TextOn(const QColor& background) {
  const QColor black(0, 0, 0);
  const QColor white(255, 255, 255);
  return Contrast(black, background) >= Contrast(white, background) ? black : white;
}

}  // namespace kestrin::widgets
