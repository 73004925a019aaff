#include "app/widgets/buttons.h"

#include <gtest/gtest.h>

#include <QImage>

#include "app/widgets/colours.h"

namespace kestrin::widgets {
namespace {

QPalette DarkPalette() {
  QPalette palette(QColor(53, 53, 53));
  palette.setColor(QPalette::ButtonText, Qt::white);
  return palette;
}

/// WCAG's least contrast of small text.
constexpr double kSmallText = 4.5;

TEST(GraphicalButton, CaptionIsReadableOnEveryBackground) {
  for (const bool dark : {false, true}) {
    GraphicalButton button("WIRE", nullptr);
    if (dark) button.setPalette(DarkPalette());
    for (const auto& colour : {std::optional<QColor>{}, std::optional(kPaleYellow),
                               std::optional(kGreen), std::optional(kRed)}) {
      button.SetBackground(colour);
      EXPECT_GE(Contrast(button.ShownText(), button.ShownBackground()), kSmallText) << dark;
    }
  }
}

TEST(GraphicalButton, ButtonFaceIsTheDesktopsOwn) {
  GraphicalButton button("WIRE", nullptr);
  button.SetBackground(kGreen);
  button.SetBackground(std::nullopt);
  EXPECT_EQ(button.ShownBackground(), button.palette().color(QPalette::Button));
  button.setPalette(DarkPalette());
  EXPECT_EQ(button.ShownBackground(), DarkPalette().color(QPalette::Button));
}

TEST(GraphicalButton, BackgroundIsWhatIsPainted) {
  GraphicalButton button("", nullptr);
  button.resize(97, 33);
  for (const QColor& colour : {kPaleYellow, kGreen, kRed}) {
    button.SetBackground(colour);
    const QColor painted = button.grab().toImage().pixelColor(48, 16);
    EXPECT_NEAR(painted.red(), colour.red(), 14);
    EXPECT_NEAR(painted.green(), colour.green(), 14);
    EXPECT_NEAR(painted.blue(), colour.blue(), 14);
  }
}

TEST(GraphicalButton, DisabledLooksFainterOnTheSameBackground) {
  GraphicalButton button("WIRE", nullptr);
  button.SetBackground(kGreen);
  const double lively = Contrast(button.ShownText(), button.ShownBackground());
  button.setEnabled(false);
  EXPECT_EQ(button.ShownBackground(), kGreen);
  EXPECT_LT(Contrast(button.ShownText(), button.ShownBackground()), lively);
}

TEST(Colours, AreGivenAsBlueGreenRed) {
  EXPECT_EQ(FromBgr(0xE0FFFF), QColor(0xFF, 0xFF, 0xE0));
  EXPECT_EQ(FromBgr(0x0000FF), QColor(0xFF, 0, 0));
  EXPECT_EQ(FromBgr(0xC00000), QColor(0, 0, 0xC0));
}

TEST(Colours, TextKeepsItsColourWhereItCanBeReadAndIsLightenedWhereNot) {
  EXPECT_EQ(Readable(kDarkRed, QColor(240, 240, 240)), kDarkRed);
  const QColor onDark = Readable(kDarkRed, QColor(53, 53, 53));
  EXPECT_GE(Contrast(onDark, QColor(53, 53, 53)), 3.5);
  EXPECT_GT(onDark.red(), onDark.blue());
}

}  // namespace
}  // namespace kestrin::widgets
