#include "app/widgets/pictureBox.h"

#include <gtest/gtest.h>

#include <array>

namespace kestrin::widgets {
namespace {

constexpr std::uint32_t kBlue = 0x8C3C00;
const QRgb kBlueRgb = qRgb(0x00, 0x3C, 0x8C);
const QRgb kWhite = qRgb(255, 255, 255);

class PictureBoxTest : public testing::Test {
 protected:
  PictureBoxTest() {
    box_.resize(100, 80);
    box_.Clear();
  }

  QRgb At(int x, int y) { return box_.Image().pixel(x, y); }

  PictureBox box_{nullptr};
};

TEST_F(PictureBoxTest, ClearPaintsTheGroundWhite) {
  box_.Line({0, 0}, {99, 79}, kBlue);
  box_.Clear();
  EXPECT_EQ(At(0, 0), kWhite);
  EXPECT_EQ(At(50, 40), kWhite);
}

TEST_F(PictureBoxTest, LineRunsFromPixelToPixel) {
  box_.Line({10, 20}, {30, 20}, kBlue);
  EXPECT_EQ(At(9, 20), kWhite);
  EXPECT_EQ(At(10, 20), kBlueRgb);
  EXPECT_EQ(At(30, 20), kBlueRgb);
  EXPECT_EQ(At(31, 20), kWhite);
  EXPECT_EQ(At(20, 19), kWhite);
  EXPECT_EQ(At(20, 21), kWhite);
}

TEST_F(PictureBoxTest, PolylineJoinsItsPointsAndNotItsEnds) {
  const std::array<preview::PicturePoint, 4> points{{{10, 10}, {10, 10}, {50, 10}, {50, 50}}};
  box_.Polyline(points, kBlue);
  EXPECT_EQ(At(30, 10), kBlueRgb);
  EXPECT_EQ(At(50, 30), kBlueRgb);
  EXPECT_EQ(At(30, 30), kWhite);
}

TEST_F(PictureBoxTest, PolylineOfOnePlaceIsAPoint) {
  const std::array<preview::PicturePoint, 2> points{{{10, 10}, {10, 10}}};
  box_.Polyline(points, kBlue);
  EXPECT_EQ(At(10, 10), kBlueRgb);
}

TEST_F(PictureBoxTest, PolygonIsFilledAndOutlined) {
  const std::array<preview::PicturePoint, 4> points{{{10, 10}, {40, 10}, {40, 30}, {10, 30}}};
  box_.Polygon(points, 0x00FF00, kBlue);
  EXPECT_EQ(At(10, 10), kBlueRgb);
  EXPECT_EQ(At(40, 30), kBlueRgb);
  EXPECT_EQ(At(25, 20), qRgb(0, 255, 0));
  EXPECT_EQ(At(41, 20), kWhite);
}

TEST_F(PictureBoxTest, CircleIsAnOutlineOfItsRadius) {
  box_.Circle({50, 40}, 3, kBlue);
  EXPECT_EQ(At(50, 40), kWhite);
  for (const auto& [x, y] : {std::pair{47, 40}, {53, 40}, {50, 37}, {50, 43}}) {
    EXPECT_EQ(At(x, y), kBlueRgb) << x << ' ' << y;
  }
  EXPECT_EQ(At(54, 40), kWhite);
}

TEST_F(PictureBoxTest, AShapeCoveredByAnotherColourIsDrawnAgain) {
  box_.Line({10, 10}, {30, 10}, kBlue);
  box_.Line({5, 10}, {35, 10}, 0x0000FF);
  EXPECT_EQ(At(20, 10), qRgb(255, 0, 0));
  box_.Line({10, 10}, {30, 10}, kBlue);
  EXPECT_EQ(At(20, 10), kBlueRgb);
}

TEST_F(PictureBoxTest, AShapeCoveredByAPolygonIsDrawnAgain) {
  box_.Line({10, 10}, {30, 10}, kBlue);
  const std::array<preview::PicturePoint, 4> over{{{0, 0}, {60, 0}, {60, 60}, {0, 60}}};
  box_.Polygon(over, 0xFFFFFF, kBlue);
  EXPECT_EQ(At(20, 10), kWhite);
  box_.Line({10, 10}, {30, 10}, kBlue);
  EXPECT_EQ(At(20, 10), kBlueRgb);
}

TEST_F(PictureBoxTest, AShapeOfAPictureThatWasClearedIsDrawnAgain) {
  box_.Line({10, 10}, {30, 10}, kBlue);
  box_.Clear();
  box_.Line({10, 10}, {30, 10}, kBlue);
  EXPECT_EQ(At(20, 10), kBlueRgb);
}

TEST_F(PictureBoxTest, ACircleAfterAPolygonIsNotFilled) {
  const std::array<preview::PicturePoint, 4> points{{{10, 10}, {20, 10}, {20, 20}, {10, 20}}};
  box_.Polygon(points, 0x00FF00, kBlue);
  box_.Circle({50, 40}, 3, kBlue);
  EXPECT_EQ(At(50, 40), kWhite);
  box_.Polygon(points, 0x00FF00, kBlue);
  EXPECT_EQ(At(15, 15), qRgb(0, 255, 0));
}

TEST_F(PictureBoxTest, WhatIsOutsideIsLeftOut) {
  box_.Line({-1000, 40}, {100000, 40}, kBlue);
  box_.Circle({-50, -50}, 3, kBlue);
  EXPECT_EQ(At(0, 40), kBlueRgb);
  EXPECT_EQ(At(99, 40), kBlueRgb);
}

TEST_F(PictureBoxTest, ThePictureIsKeptAndShownOnPaint) {
  box_.Line({10, 10}, {30, 10}, kBlue);
  box_.Refresh();
  EXPECT_EQ(box_.grab().toImage().pixel(20, 10), kBlueRgb);
  EXPECT_EQ(box_.grab().toImage().pixel(20, 10), kBlueRgb);
}

TEST_F(PictureBoxTest, PaintingInTheMiddleOfADrawingDoesNotDisturbIt) {
  box_.Line({10, 10}, {30, 10}, kBlue);
  EXPECT_EQ(box_.grab().toImage().pixel(20, 10), kBlueRgb);
  box_.Line({10, 20}, {30, 20}, kBlue);
  EXPECT_EQ(At(20, 20), kBlueRgb);
}

TEST_F(PictureBoxTest, ABoxWithoutSizeTakesAllCallsAndDrawsNothing) {
  PictureBox none(nullptr);
  none.resize(0, 0);
  none.Clear();
  none.Line({0, 0}, {5, 5}, kBlue);
  none.Circle({1, 1}, 3, kBlue);
  none.Refresh();
  EXPECT_TRUE(none.Image().isNull());
}

}  // namespace
}  // namespace kestrin::widgets
