#include "app/widgets/colours.h"

#include <algorithm>
#include <cmath>

namespace kestrin::widgets {

namespace {

constexpr double kReadableContrast = 3.5;
constexpr double kFaintContrast = 3;

double Linear(float part) {
  const auto channel = static_cast<double>(part);
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
         0.0722 * Linear(colour.blueF());
}

/// The colour with its lightness moved towards white.
QColor Lightened(const QColor& colour, int percent) {
  const float lightness = colour.lightnessF();
  const float moved = lightness + (1 - lightness) * static_cast<float>(percent) / 100.0F;
  return QColor::fromHslF(colour.hslHueF(), colour.hslSaturationF(), moved);
}

QColor Mixed(const QColor& one, const QColor& other, int percentOfOther) {
  const auto part = [&](int from, int to) { return from + (to - from) * percentOfOther / 100; };
  return {part(one.red(), other.red()), part(one.green(), other.green()),
          part(one.blue(), other.blue())};
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor Readable(const QColor& wanted, const QColor& background) {
  if (!IsDark(background)) return wanted;
  QColor colour = wanted;
  for (int percent = 5; percent <= 100; percent += 5) {
    if (Contrast(colour, background) >= kReadableContrast) break;
    colour = Lightened(wanted, percent);
  }
  return colour;
}

QColor Faint(const QColor& text, const QColor& background) {
  for (int percent = 50; percent > 0; percent -= 5) {
    const QColor faint = Mixed(text, background, percent);
    if (Contrast(faint, background) >= kFaintContrast) return faint;
  }
  return text;
}

bool IsDark(const QColor& background) {
  return Contrast(Qt::white, background) > Contrast(Qt::black, background);
}

QColor TextOn(const QColor& background) { return IsDark(background) ? Qt::white : Qt::black; }

}  // namespace kestrin::widgets
