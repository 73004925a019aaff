#include "app/widgets/fonts.h"

#include <QFontMetrics>
#include <QStringList>

namespace kestrin::widgets {

namespace {

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

QFont DesignFont(const FontSpec& spec, int unitsPerInch) {
  constexpr int kQuarterPointsPerInch = 4 * 72;
  QFont font;
  font.setFamilies(Families(spec.face));
  font.setStyleHint(spec.face == Face::kTimes ? QFont::Serif : QFont::SansSerif);
  font.setBold(spec.bold);
  font.setPixelSize(spec.quarterPoints * unitsPerInch / kQuarterPointsPerInch);
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
