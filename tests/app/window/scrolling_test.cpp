#include <gtest/gtest.h>

#include <QApplication>
#include <QWheelEvent>

#include "tests/app/testWindow.h"

namespace kestrin::window {
namespace {

constexpr int kBarWidth = 17;
constexpr int kLine = 17;
constexpr QPoint kNotchDown(0, -120);

class ScrollingTest : public test::WindowTest {
 protected:
  void TurnWheelOver(const std::string& name, QPoint angle) {
    QWidget& widget = window_.Find<>(name);
    const QPointF middle(widget.rect().center());
    QWheelEvent event(middle, widget.mapToGlobal(middle), {}, angle, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    // As from the system: only then does what a control leaves go to its container.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
  }

  /// Whether all of the control can be seen and no bar covers a part of it.
  bool IsInView(const QWidget& control) {
    const QRect at(control.mapTo(&*window_, QPoint(0, 0)), control.size());
    QRect view = window_->rect();
    if (V().isVisible()) view.setRight(V().x() - 1);
    if (H().isVisible()) view.setBottom(H().y() - 1);
    return view.contains(at);
  }
};

TEST_F(ScrollingTest, TheControlThatTabGoesToComesIntoView) {
  for (const QSize size : {QSize(600, 400), QSize(250, 200), QSize(900, 300), QSize(200, 700)}) {
    Resize(size.width(), size.height());
    for (const bool back : {false, true}) {
      for (int i = 0; i < 12; ++i) {
        Press(back ? Qt::Key_Backtab : Qt::Key_Tab, back ? Qt::ShiftModifier : Qt::NoModifier);
        QWidget* focused = window_->focusWidget();
        ASSERT_NE(focused, nullptr);
        EXPECT_TRUE(IsInView(*focused)) << focused->objectName().toStdString() << size.width();
      }
    }
  }
}

TEST_F(ScrollingTest, TheOptionThatAnArrowKeyGoesToComesIntoView) {
  Resize(600, 150);
  window_.Option(0).setFocus();
  for (int i = 1; i < 4; ++i) {
    Press(Qt::Key_Down);
    EXPECT_TRUE(window_.Option(i).hasFocus());
    EXPECT_TRUE(IsInView(window_.Option(i))) << i;
  }
}

TEST_F(ScrollingTest, TheControlThatAnAssistiveToolGoesToComesIntoView) {
  Resize(250, 200);
  for (const char* name : {"Command2", "Command3", "Command1_3"}) {
    window_.Button(name).setFocus();
    EXPECT_TRUE(IsInView(window_.Button(name))) << name;
  }
}

TEST_F(ScrollingTest, AControlThatIsInViewMovesNothing) {
  Resize(600, 400);
  V().setValue(20);
  window_.Button("Command3").setFocus();
  window_.Button("Command4").setFocus();
  EXPECT_EQ(V().value(), 20);
}

TEST_F(ScrollingTest, WhatTheMousePressesStaysUnderIt) {
  Resize(600, 400);
  window_.Button("Command4").setFocus();
  V().setValue(45);
  ASSERT_FALSE(IsInView(window_.Button("Command3")));
  QTest::mouseClick(&window_.Find<>("Command3"), Qt::LeftButton, {}, QPoint(48, 36));
  EXPECT_EQ(window_.dialogs.opened.size(), 1U);
  EXPECT_TRUE(window_.Button("Command3").hasFocus());
  EXPECT_EQ(V().value(), 45);
}

TEST_F(ScrollingTest, PageKeysGoFromEndToEndOfTheBarsRange) {
  Resize(600, 400);
  const int last = 540 - 400 + kBarWidth;
  for (const auto& [forward, backward] :
       {std::pair{Qt::Key_PageDown, Qt::Key_PageUp}, std::pair{Qt::Key_End, Qt::Key_Home}}) {
    Press(forward);
    EXPECT_EQ(V().value(), last);
    EXPECT_EQ(Content().pos(), QPoint(0, -last));
    Press(backward);
    EXPECT_EQ(Content().pos(), QPoint(0, 0));
  }
}

TEST_F(ScrollingTest, PageKeysWithShiftGoSideways) {
  Resize(600, 400);
  const int last = 792 - 600 + kBarWidth;
  Press(Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(Content().pos(), QPoint(-last, 0));
  Press(Qt::Key_PageUp, Qt::ShiftModifier);
  EXPECT_EQ(Content().pos(), QPoint(0, 0));
}

TEST_F(ScrollingTest, PageKeysWorkWhereverTheFocusIs) {
  Resize(600, 400);
  for (const char* name : {"Command3", "Option1_0", "Command1_2", "Command2"}) {
    window_.Find<>(name).setFocus();
    Press(Qt::Key_Home);
    EXPECT_EQ(V().value(), 0) << name;
    Press(Qt::Key_PageDown);
    EXPECT_EQ(V().value(), V().maximum()) << name;
  }
}

TEST_F(ScrollingTest, ANotchOfTheWheelIsThreeLinesOverTheContentAndOverTheBar) {
  Resize(600, 400);
  for (const char* name : {"Picture1", "Command3", "Option1_1", "Label5", "Label6", "Frame4",
                           "Picture2", "Frame3", "VScroll1"}) {
    V().setValue(0);
    TurnWheelOver(name, kNotchDown);
    EXPECT_EQ(V().value(), 3 * kLine) << name;
    TurnWheelOver(name, -kNotchDown);
    EXPECT_EQ(V().value(), 0) << name;
  }
}

TEST_F(ScrollingTest, TheWheelStopsAtTheEndsOfTheRange) {
  Resize(600, 400);
  for (int i = 0; i < 20; ++i) TurnWheelOver("Picture1", kNotchDown);
  EXPECT_EQ(V().value(), 540 - 400 + kBarWidth);
  for (int i = 0; i < 20; ++i) TurnWheelOver("VScroll1", -kNotchDown);
  EXPECT_EQ(V().value(), 0);
}

TEST_F(ScrollingTest, TheWheelTiltedGoesSideways) {
  Resize(600, 400);
  TurnWheelOver("Picture1", kNotchDown.transposed());
  EXPECT_EQ(Content().pos(), QPoint(-3 * kLine, 0));
}

TEST_F(ScrollingTest, TheWheelScrollsOverDisabledControlsAndClosedFrames) {
  window_.Click("Command3");
  ASSERT_FALSE(window_.Option(0).isEnabled());
  ASSERT_FALSE(window_.Find<widgets::Frame>("Frame2").AcceptsInput());
  Resize(600, 400);
  for (const char* name : {"Option1_0", "Command1_0"}) {
    V().setValue(0);
    TurnWheelOver(name, kNotchDown);
    EXPECT_EQ(V().value(), 3 * kLine) << name;
  }
}

TEST_F(ScrollingTest, WhatIsCutOffWithoutABarIsScrolledToAllTheSame) {
  Resize(800, 500);
  ASSERT_FALSE(V().isVisible());
  TurnWheelOver("Picture1", kNotchDown);
  EXPECT_EQ(V().value(), 3 * kLine);
  Press(Qt::Key_End);
  EXPECT_EQ(V().value(), 540 - 500 + kBarWidth);
  Resize(700, 600);
  ASSERT_FALSE(H().isVisible());
  Press(Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(H().value(), 792 - 700 + kBarWidth);
}

TEST_F(ScrollingTest, NothingScrollsWhereAllOfTheContentShows) {
  for (const QSize size : {QSize(792, 540), QSize(1000, 700)}) {
    Resize(size.width(), size.height());
    Press(Qt::Key_End);
    Press(Qt::Key_End, Qt::ShiftModifier);
    TurnWheelOver("Picture1", kNotchDown);
    TurnWheelOver("Picture1", kNotchDown.transposed());
    for (int i = 0; i < 12; ++i) Press(Qt::Key_Tab);
    EXPECT_EQ(Content().pos(), QPoint(0, 0)) << size.width();
  }
}

}  // namespace
}  // namespace kestrin::window
