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
    box_.SetForeColor(kBlue);
  }

  QRgb At(int x, int y) { return box_.Image().pixel(x, y); }

  PictureBox box_{nullptr};
};

TEST_F(PictureBoxTest, ClearPaintsTheGroundWhite) {
  box_.Line({0, 0}, {99, 79});
  box_.Clear();
  EXPECT_EQ(At(0, 0), kWhite);
  EXPECT_EQ(At(50, 40), kWhite);
}

TEST_F(PictureBoxTest, LineRunsFromPixelToPixel) {
  box_.Line({10, 20}, {30, 20});
  EXPECT_EQ(At(9, 20), kWhite);
  EXPECT_EQ(At(10, 20), kBlueRgb);
  EXPECT_EQ(At(30, 20), kBlueRgb);
  EXPECT_EQ(At(31, 20), kWhite);
  EXPECT_EQ(At(20, 19), kWhite);
  EXPECT_EQ(At(20, 21), kWhite);
}

TEST_F(PictureBoxTest, PolylineJoinsItsPointsAndNotItsEnds) {
  const std::array<preview::PicturePoint, 4> points{{{10, 10}, {10, 10}, {50, 10}, {50, 50}}};
  box_.Polyline(points);
  EXPECT_EQ(At(30, 10), kBlueRgb);
  EXPECT_EQ(At(50, 30), kBlueRgb);
  EXPECT_EQ(At(30, 30), kWhite);
}

TEST_F(PictureBoxTest, PolylineOfOnePlaceIsAPoint) {
  const std::array<preview::PicturePoint, 2> points{{{10, 10}, {10, 10}}};
  box_.Polyline(points);
  EXPECT_EQ(At(10, 10), kBlueRgb);
}

TEST_F(PictureBoxTest, PolygonIsFilledAndOutlined) {
  box_.SetFillColor(0x00FF00);
  const std::array<preview::PicturePoint, 4> points{{{10, 10}, {40, 10}, {40, 30}, {10, 30}}};
  box_.Polygon(points);
  EXPECT_EQ(At(10, 10), kBlueRgb);
  EXPECT_EQ(At(40, 30), kBlueRgb);
  EXPECT_EQ(At(25, 20), qRgb(0, 255, 0));
  EXPECT_EQ(At(41, 20), kWhite);
}

TEST_F(PictureBoxTest, CircleIsAnOutlineOfItsRadius) {
  box_.Circle({50, 40}, 3);
  EXPECT_EQ(At(50, 40), kWhite);
  for (const auto& [x, y] : {std::pair{47, 40}, {53, 40}, {50, 37}, {50, 43}}) {
    EXPECT_EQ(At(x, y), kBlueRgb) << x << ' ' << y;
  }
  EXPECT_EQ(At(54, 40), kWhite);
}

TEST_F(PictureBoxTest, AShapeCoveredByAnotherColourIsDrawnAgain) {
  box_.Line({10, 10}, {30, 10});
  box_.SetForeColor(0x0000FF);
  box_.Line({10, 10}, {30, 10});
  box_.SetForeColor(kBlue);
  box_.Line({10, 10}, {30, 10});
  EXPECT_EQ(At(20, 10), kBlueRgb);
}

TEST_F(PictureBoxTest, AShapeCoveredByAPolygonIsDrawnAgain) {
  box_.Line({10, 10}, {30, 10});
  box_.SetFillColor(0xFFFFFF);
  const std::array<preview::PicturePoint, 4> over{{{0, 0}, {60, 0}, {60, 60}, {0, 60}}};
  box_.Polygon(over);
  EXPECT_EQ(At(20, 10), kWhite);
  box_.Line({10, 10}, {30, 10});
  EXPECT_EQ(At(20, 10), kBlueRgb);
}

TEST_F(PictureBoxTest, AShapeOfAPictureThatWasRemovedIsDrawnAgain) {
  box_.Line({10, 10}, {30, 10});
  box_.RemovePicture();
  box_.Line({10, 10}, {30, 10});
  EXPECT_EQ(At(20, 10), kBlueRgb);
}

TEST_F(PictureBoxTest, WhatIsOutsideIsLeftOut) {
  box_.Line({-1000, 40}, {100000, 40});
  box_.Circle({-50, -50}, 3);
  EXPECT_EQ(At(0, 40), kBlueRgb);
  EXPECT_EQ(At(99, 40), kBlueRgb);
}

TEST_F(PictureBoxTest, ThePictureIsKeptAndShownOnPaint) {
  box_.Line({10, 10}, {30, 10});
  box_.Refresh();
  EXPECT_EQ(box_.grab().toImage().pixel(20, 10), kBlueRgb);
  EXPECT_EQ(box_.grab().toImage().pixel(20, 10), kBlueRgb);
}

TEST_F(PictureBoxTest, PaintingInTheMiddleOfADrawingDoesNotDisturbIt) {
  box_.Line({10, 10}, {30, 10});
  EXPECT_EQ(box_.grab().toImage().pixel(20, 10), kBlueRgb);
  box_.Line({10, 20}, {30, 20});
  EXPECT_EQ(At(20, 20), kBlueRgb);
}

TEST_F(PictureBoxTest, ABoxWithoutSizeTakesAllCallsAndDrawsNothing) {
  PictureBox none(nullptr);
  none.resize(0, 0);
  none.Clear();
  none.Line({0, 0}, {5, 5});
  none.Circle({1, 1}, 3);
  none.Refresh();
  EXPECT_TRUE(none.Image().isNull());
}

}  // namespace
}  // namespace kestrin::widgets
