#include "app/widgets/logo.h"

#include <gtest/gtest.h>

#include <QImageReader>
#include <QPainter>
#include <string_view>

namespace kestrin::widgets {
namespace {

/// The mean difference of two pictures' channels, in steps of 255: antialiasing differs from
/// one renderer to the next, and by more the smaller a picture is.
double Difference(const QImage& one, const QImage& other) {
  const auto sum = [](QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
           std::abs(qBlue(a) - qBlue(b)) + std::abs(qAlpha(a) - qAlpha(b));
  };
  double total = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) total += sum(one.pixel(x, y), other.pixel(x, y));
  }
  return total / (4.0 * one.width() * one.height());
}

QImage Drawn(int side) {
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  DrawLogo(painter, QRectF(0, 0, side, side));
  return image;
}

void ExpectTheLogo(const QImage& image) {
  ASSERT_FALSE(image.isNull());
  EXPECT_LT(Difference(image, Drawn(image.width())), 0.5 + 45.0 / image.width());
}

TEST(Logo, IsTheSameInTheMenuAsInTheWindow) {
  if (std::string_view(KESTRIN_ICONS).empty()) GTEST_SKIP() << "rsvg-convert is missing";
  for (const int side : {16, 22, 24, 32, 48, 64, 128, 256}) {
    const QImage image(QString(KESTRIN_ICONS "/%1/kestrin.png").arg(side));
    EXPECT_EQ(image.size(), QSize(side, side));
    ExpectTheLogo(image);
  }
}

TEST(Logo, IsTheSameOnWindows) {
  QImageReader reader(KESTRIN_ICO);
  ASSERT_EQ(reader.imageCount(), 9);
  for (int i = 0; i < reader.imageCount(); ++i) {
    ASSERT_TRUE(reader.jumpToImage(i));
    ExpectTheLogo(reader.read());
  }
}

}  // namespace
}  // namespace kestrin::widgets
