#include "app/colours.h"

#include <algorithm>
#include <cmath>

namespace kestrin {

namespace {

constexpr double kReadableContrast = 3.5;

double Linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
         0.0722 * Linear(colour.blueF());
}

QColor Mixed(const QColor& from, const QColor& to, int percent) {
  const auto channel = [percent](int one, int other) {
    return one + (other - one) * percent / 100;
  };
  return {channel(from.red(), to.red()), channel(from.green(), to.green()),
          channel(from.blue(), to.blue())};
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor Readable(const QColor& wanted, const QColor& background) {
  const QColor goal = TextOn(background);
  QColor colour = wanted;
  for (int percent = 0; percent <= 100; percent += 5) {
    colour = Mixed(wanted, goal, percent);
    if (Contrast(colour, background) >= kReadableContrast) break;
  }
  return colour;
}

QColor TextOn(const QColor& background) {
  const QColor black(0, 0, 0);
  const QColor white(255, 255, 255);
  return Contrast(black, background) >= Contrast(white, background) ? black : white;
}

}  // namespace kestrin
