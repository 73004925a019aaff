#include <gtest/gtest.h>

#include <array>
#include <cstdlib>

#include "app/widgets/colours.h"
#include "tests/app/testWindow.h"

namespace kestrin::window {
namespace {

using test::TestWindow;

/// But for what the painter's own arithmetic, in parts of a pixel, leaves at a round edge.
bool Alike(const QColor& one, const QColor& other) {
  constexpr int kHardlySeen = 3;
  return std::abs(one.red() - other.red()) <= kHardlySeen &&
         std::abs(one.green() - other.green()) <= kHardlySeen &&
         std::abs(one.blue() - other.blue()) <= kHardlySeen;
}

/// The window as painted, and where its controls are in it, in device pixels.
class Borders : public testing::Test {
 protected:
  Borders() {
    for (const char* hidden : {"Label7", "Label9"}) window_.Find<>(hidden).setVisible(true);
    // The focus shows inside of a border, and is no border.
    if (QWidget* focused = window_->focusWidget()) focused->clearFocus();
    shown_ = window_->grab().toImage();
  }

  QRect PlaceOf(const std::string& name) {
    const QWidget& widget = window_.Find<>(name);
    const double scale = shown_.devicePixelRatio();
    const QPointF topLeft = widget.mapTo(&*window_, QPointF(0, 0)) * scale;
    const QPointF bottomRight = topLeft + QPointF(widget.width(), widget.height()) * scale;
    const QPoint first(qRound(topLeft.x()), qRound(topLeft.y()));
    return {first, QPoint(qRound(bottomRight.x()) - 1, qRound(bottomRight.y()) - 1)};
  }

  /// How many pixels of the colour there are from an edge's pixel inwards.
  int Thickness(QPoint edge, QPoint inwards, const QColor& colour) const {
    int count = 0;
    while (count < 8 && Alike(shown_.pixelColor(edge + count * inwards), colour)) ++count;
    return count;
  }

  /// Of the left, right, top and bottom border.
  std::array<int, 4> ThicknessesOf(const std::string& name, const QColor& colour) {
    const QRect at = PlaceOf(name);
    // Beside a frame's caption, and where no line of the bracket ends.
    const int y = at.top() + at.height() * 2 / 3;
    const int x = at.left() + at.width() * 2 / 3;
    int top = at.top();
    while (!Alike(shown_.pixelColor(x, top), colour) && top < y) ++top;
    return {Thickness({at.left(), y}, {1, 0}, colour), Thickness({at.right(), y}, {-1, 0}, colour),
            Thickness({x, top}, {0, 1}, colour), Thickness({x, at.bottom()}, {0, -1}, colour)};
  }

  int Whole() const { return static_cast<int>(shown_.devicePixelRatio()); }
  std::array<int, 4> AllAlike() const { return {Whole(), Whole(), Whole(), Whole()}; }

  TestWindow window_;
  QImage shown_;
};

TEST_F(Borders, AreAllOfTheSameWholeDevicePixels) {
  for (const char* name : {"Label5", "Label6", "Label7", "Label9", "Frame1", "Frame2", "Frame4"}) {
    EXPECT_EQ(ThicknessesOf(name, widgets::kGrey), AllAlike()) << name;
  }
}

TEST_F(Borders, OfButtonsAreAsThick) {
  for (const char* name : {"Command1_0", "Command1_1", "Command1_2", "Command1_3", "Command2",
                           "Command3", "Command4"}) {
    const QColor border = window_.Button(name).ShownBackground().darker(190);
    EXPECT_EQ(ThicknessesOf(name, border), AllAlike()) << name;
  }
}

TEST_F(Borders, LinesOfTheBracketAreAsThickAndJoin) {
  const QRect upright = PlaceOf("Line1");
  EXPECT_EQ(Thickness({upright.left(), upright.center().y() / 2 + upright.top() / 2}, {1, 0},
                      widgets::kGrey),
            Whole());
  for (const char* name : {"Line2_0", "Line2_1", "Line2_2", "Line2_3", "Line2_4"}) {
    const QRect line = PlaceOf(name);
    EXPECT_EQ(Thickness({line.center().x(), line.top()}, {0, 1}, widgets::kGrey), Whole()) << name;
    for (const int x : {line.left(), line.right()}) {
      EXPECT_EQ(shown_.pixelColor(x, line.top()), widgets::kGrey) << name << ' ' << x;
    }
  }
  const int end = PlaceOf("Line2_3").top() + Whole();
  EXPECT_EQ(shown_.pixelColor(upright.left(), end - 1), widgets::kGrey);
  EXPECT_NE(shown_.pixelColor(upright.left(), end), widgets::kGrey);
}

}  // namespace
}  // namespace kestrin::window
