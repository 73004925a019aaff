#include "app/widgets/buttons.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QStyle>
#include <QStyleFactory>
#include <algorithm>
#include <memory>

#include "app/widgets/colours.h"
#include "app/widgets/fonts.h"

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

TEST(GraphicalButton, BackgroundIsPaintedExactlyAndFlatAlsoUnderTheMouse) {
  GraphicalButton button("", nullptr);
  button.resize(97, 33);
  const QRect inside = button.rect().adjusted(3, 3, -3, -3);
  for (const bool hovered : {false, true}) {
    button.setAttribute(Qt::WA_UnderMouse, hovered);
    for (const QColor& colour : {kPaleYellow, kGreen, kRed}) {
      button.SetBackground(colour);
      QImage flat(inside.size(), QImage::Format_RGB32);
      flat.fill(colour);
      EXPECT_EQ(button.grab(inside).toImage().convertToFormat(QImage::Format_RGB32), flat)
          << colour.name().toStdString() << hovered;
    }
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

TEST(Colours, WhatIsDisabledIsFaintAndCanStillBeRead) {
  const std::pair<QColor, QColor> themes[] = {{Qt::black, Qt::white},
                                              {Qt::black, QColor(0xEF, 0xEF, 0xEF)},
                                              {Qt::black, kRed},
                                              {QColor(0x33, 0x33, 0x33), QColor(0xD4, 0xD0, 0xC8)},
                                              {Qt::white, QColor(0x2B, 0x2B, 0x2B)},
                                              {Qt::white, Qt::black},
                                              {Qt::yellow, Qt::black}};
  for (const auto& [text, background] : themes) {
    const double faint = Contrast(Faint(text, background), background);
    EXPECT_GE(faint, 3) << text.name().toStdString() << background.name().toStdString();
    EXPECT_LT(faint, Contrast(text, background));
  }
}

TEST(Colours, AreGivenAsBlueGreenRed) {
  EXPECT_EQ(FromBgr(0xE0FFFF), QColor(0xFF, 0xFF, 0xE0));
  EXPECT_EQ(FromBgr(0x0000FF), QColor(0xFF, 0, 0));
  EXPECT_EQ(FromBgr(0xC00000), QColor(0, 0, 0xC0));
}

/// How well the text in a picture tells from what it stands on: at its darkest or lightest.
double BestContrast(const QImage& image, const QColor& ground) {
  double best = 1;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      best = std::max(best, Contrast(image.pixelColor(x, y), ground));
    }
  }
  return best;
}

TEST(OptionButton, ADisabledCaptionCanBeReadOnEveryTheme) {
  QPalette classic(QColor(0xD4, 0xD0, 0xC8));
  QPalette highContrast(Qt::black);
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
    highContrast.setColor(role, Qt::white);
  }
  for (const char* style : {"Fusion", "Windows"}) {
    for (const QPalette& theme :
         {QPalette(QColor(0xEF, 0xEF, 0xEF)), classic, DarkPalette(), highContrast}) {
      OptionButton option("POINT", nullptr);
      const std::unique_ptr<QStyle> owned(QStyleFactory::create(style));
      option.setStyle(owned.get());
      option.setPalette(theme);
      option.setFont(DesignFont({}));
      option.resize(81, 17);
      const QColor ground = theme.color(QPalette::Active, QPalette::Window);
      constexpr int kBesideTheCircle = 24;
      const QRect caption(kBesideTheCircle, 0, 81 - kBesideTheCircle, 17);
      const double lively = BestContrast(option.grab(caption).toImage(), ground);
      option.setEnabled(false);
      const double faint = BestContrast(option.grab(caption).toImage(), ground);
      EXPECT_GE(faint, 2.95) << style << ground.name().toStdString();
      EXPECT_LT(faint, lively) << style << ground.name().toStdString();
    }
  }
}

TEST(Colours, AreTheDesignsOwnOnEveryLightBackgroundAndLightenedOnDarkOnes) {
  for (const QColor& light : {QColor(0xFF, 0xFF, 0xFF), QColor(0xEF, 0xEF, 0xEF),
                              QColor(0xF0, 0xF0, 0xF0), QColor(0xD4, 0xD0, 0xC8)}) {
    EXPECT_EQ(Readable(kDarkRed, light), kDarkRed);
    EXPECT_EQ(Readable(kGrey, light), kGrey);
  }
  const QColor onDark = Readable(kDarkRed, QColor(53, 53, 53));
  EXPECT_GE(Contrast(onDark, QColor(53, 53, 53)), 3.5);
  EXPECT_GT(onDark.red(), onDark.blue());
}

}  // namespace
}  // namespace kestrin::widgets
