#include <gtest/gtest.h>

#include <algorithm>

#include "tests/app/testWindow.h"
#include "tests/support/jobBuilder.h"

namespace kestrin::window {
namespace {

using test::TestWindow;

const QRgb kPath = qRgb(0x00, 0x3C, 0x8C);
const QRgb kWhite = qRgb(255, 255, 255);

/// A swath 20 m wide driven 100 m north: with the margins, 504 units show 102.04 m,
/// and the way stands in the middle.
constexpr double kLength = 100;
constexpr double kWidth = 20;
constexpr double kUnits = 504;
constexpr double kMetresPerUnit = kLength * (1 + 5 / kUnits) * (1 + 5 / kUnits) / kUnits;

/// Pixels that are not white, and the box around them.
struct Drawn {
  int count = 0;
  int left = 10000, top = 10000, right = -1, bottom = -1;
};

Drawn DrawnIn(const QImage& image) {
  Drawn drawn;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) == kWhite) continue;
      ++drawn.count;
      drawn.left = std::min(drawn.left, x);
      drawn.right = std::max(drawn.right, x);
      drawn.top = std::min(drawn.top, y);
      drawn.bottom = std::max(drawn.bottom, y);
    }
  }
  return drawn;
}

class PreviewImages : public testing::Test {
 protected:
  PreviewImages() { window_.Select(StraightNorth()); }

  std::string StraightNorth() {
    test::JobBuilder job(window_.folder / "north.sqlite");
    job.Reference({1000, 0}, 45, -93).Version({1000, 0}, "3.2.8-1");
    job.Implement({1000, 0}, "Planter", {{kWidth, 0, 0, 0}});
    for (int i = 0; i <= 100; ++i) job.Epoch({1000, i * 1000}, 0, i, 0, i == 0);
    return job.Finish();
  }

  QImage Draw(int kind) {
    window_.Click("Option1_" + std::to_string(kind));
    return window_.Find<widgets::PictureBox>("Picture1").Image();
  }

  static void ExpectBox(const Drawn& drawn, double halfWidth, double beyondEnds) {
    constexpr double kMiddle = kUnits / 2;
    const double half = halfWidth / kMetresPerUnit;
    const double top = 5 * (1 + 5 / kUnits) * kLength / kUnits / kMetresPerUnit;
    const double bottom = kUnits - 5 * kLength / kUnits / kMetresPerUnit;
    EXPECT_NEAR(drawn.left, kMiddle - half, 1);
    EXPECT_NEAR(drawn.right, kMiddle + half, 1);
    EXPECT_NEAR(drawn.top, top - beyondEnds, 1);
    EXPECT_NEAR(drawn.bottom, bottom + beyondEnds, 1);
  }

  TestWindow window_;
};

TEST_F(PreviewImages, WireIsTheDrivenPath) {
  const QImage image = Draw(0);
  const Drawn drawn = DrawnIn(image);
  ExpectBox(drawn, 0, 0);
  EXPECT_EQ(image.pixel(drawn.left, 250), kPath);
  EXPECT_NEAR(drawn.count, drawn.bottom - drawn.top + 1, 1);
}

TEST_F(PreviewImages, BoomIsALineAcrossAtEveryEpoch) {
  const QImage image = Draw(1);
  const Drawn drawn = DrawnIn(image);
  ExpectBox(drawn, kWidth / 2, 0);
  int lines = 0;
  for (int y = 0; y < image.height(); ++y) lines += image.pixel(252, y) == kPath ? 1 : 0;
  EXPECT_EQ(lines, 101);
  EXPECT_NEAR(drawn.count, 101 * (kWidth / kMetresPerUnit + 1), 101);
}

TEST_F(PreviewImages, CoverageIsFilledGreenWithADarkerEdge) {
  const QImage image = Draw(2);
  const Drawn drawn = DrawnIn(image);
  ExpectBox(drawn, kWidth / 2, 0);
  const QColor inside = image.pixelColor(252, 250);
  const QColor side = image.pixelColor(drawn.left, 250);
  EXPECT_GT(inside.green(), std::max(inside.red(), inside.blue()));
  EXPECT_GT(side.green(), std::max(side.red(), side.blue()));
  EXPECT_LT(side.lightness(), inside.lightness());
  const int wide = drawn.right - drawn.left + 1;
  const int high = drawn.bottom - drawn.top + 1;
  EXPECT_EQ(drawn.count, wide * high);
  EXPECT_EQ(image.pixelColor(252, drawn.bottom), side);
}

TEST_F(PreviewImages, PointsAreCirclesOfRadius3) {
  const QImage image = Draw(3);
  ExpectBox(DrawnIn(image), 3 * kMetresPerUnit, 3);
}

TEST(PreviewOfOnePoint, IsDrawnInTheMiddle) {
  TestWindow window;
  test::JobBuilder job(window.folder / "one.sqlite");
  job.Reference({1000, 0}, 45, -93).Version({1000, 0}, "3.2.8-1").Epoch({1000, 5}, 7, 7);
  window.Select(job.Finish());
  window.Click("Option1_3");
  const QImage image = window.Find<widgets::PictureBox>("Picture1").Image();
  const Drawn drawn = DrawnIn(image);
  EXPECT_NEAR((drawn.left + drawn.right) / 2, image.width() / 2, 1);
  EXPECT_NEAR((drawn.top + drawn.bottom) / 2, image.height() / 2, 1);
}

}  // namespace
}  // namespace kestrin::window
