#include "app/widgets/fonts.h"

#include <QFontMetrics>
#include <QStringList>

namespace kestrin::widgets {

namespace {

constexpr int kQuarterPointsPerPoint = 4;

QStringList Families(Face face) {
  switch (face) {
    case Face::kSansSerif:
      return {"MS Sans Serif", "Microsoft Sans Serif", "Arial", "Liberation Sans", "Arimo",
              "Helvetica"};
    case Face::kMicrosoftSansSerif:
      return {"Microsoft Sans Serif", "Arial", "Liberation Sans", "Arimo", "Helvetica"};
    case Face::kArial:
      return {"Arial", "Liberation Sans", "Arimo", "Helvetica"};
    case Face::kTimes:
      return {"Times New Roman", "Liberation Serif", "Tinos", "Times"};
  }
  return {};
}

}  // namespace

QFont WindowFont(const FontSpec& spec) {
  constexpr int kPixelsPerInch = 96;
  constexpr int kPointsPerInch = 72;
  QFont font;
  font.setFamilies(Families(spec.face));
  font.setStyleHint(spec.face == Face::kTimes ? QFont::Serif : QFont::SansSerif);
  font.setBold(spec.bold);
  font.setPixelSize(spec.quarterPoints * kPixelsPerInch /
                    (kPointsPerInch * kQuarterPointsPerPoint));
  return font;
}

QFont Fitted(const QFont& font, const QString& text, int width) {
  constexpr int kNarrowest = 80;
  QFont fitted = font;
  for (int percent = 100; percent >= kNarrowest; percent -= 2) {
    if (percent < 100) fitted.setStretch(percent);
    if (QFontMetrics(fitted).horizontalAdvance(text) <= width) break;
  }
  return fitted;
}

}  // namespace kestrin::widgets
