#include "app/widgets/frame.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLineEdit>
#include <QShortcut>
#include <QTest>

#include "app/widgets/accessibleButton.h"
#include "app/widgets/buttons.h"

namespace kestrin::widgets {
namespace {

/// A button and an option in a frame, and something outside to hold the focus.
class FrameTest : public testing::Test {
 protected:
  /// Before the first button: what tools were told of it once stays.
  static void SetUpTestSuite() { InstallAccessibleButtons(); }

  FrameTest() {
    outside_.setGeometry(0, 0, 100, 20);
    frame_.setGeometry(0, 30, 200, 120);
    button_.setGeometry(10, 20, 80, 30);
    option_.setGeometry(10, 60, 80, 20);
    other_.setGeometry(10, 90, 80, 20);
    QObject::connect(&button_, &GraphicalButton::Chosen, [this] { ++chosen_; });
    QObject::connect(&option_, &OptionButton::Chosen, [this] { ++chosen_; });
    QObject::connect(&other_, &OptionButton::Chosen, [this] { ++chosen_; });
    window_.resize(220, 160);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  static void Do(QWidget& widget, const QString& action) {
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
    ASSERT_NE(interface, nullptr);
    interface->actionInterface()->doAction(action);
  }

  QWidget window_;
  QLineEdit outside_{&window_};
  Frame frame_{"CAPTION", &window_};
  GraphicalButton button_{"PRESS", &frame_};
  OptionButton option_{"ONE", &frame_};
  OptionButton other_{"TWO", &frame_};
  int chosen_ = 0;
};

/// Longer than an animated click takes.
constexpr int kAnimation = 250;

TEST_F(FrameTest, OpenFrameLetsEveryWayOfPressingThrough) {
  QTest::mouseClick(&button_, Qt::LeftButton);
  button_.setFocus();
  QTest::keyClick(&button_, Qt::Key_Space);
  button_.click();
  button_.animateClick();
  QTest::qWait(kAnimation);
  EXPECT_EQ(chosen_, 4);
  Do(button_, QAccessibleActionInterface::pressAction());
  QTest::qWait(kAnimation);
  EXPECT_EQ(chosen_, 5);
  QTest::mouseClick(&option_, Qt::LeftButton);
  EXPECT_TRUE(option_.isChecked());
  EXPECT_EQ(chosen_, 6);
  Do(other_, QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(other_.isChecked());
  EXPECT_EQ(chosen_, 7);
}

TEST_F(FrameTest, ClosedFrameLeavesTheLookOfWhatItHolds) {
  const QImage open = button_.grab().toImage();
  frame_.SetInputEnabled(false);
  EXPECT_TRUE(button_.isEnabled());
  EXPECT_TRUE(option_.isEnabled());
  EXPECT_EQ(button_.grab().toImage(), open);
}

TEST_F(FrameTest, ClosedFrameStopsTheMouse) {
  frame_.SetInputEnabled(false);
  QTest::mouseClick(&button_, Qt::LeftButton);
  QTest::mouseDClick(&button_, Qt::LeftButton);
  QTest::mouseClick(&option_, Qt::LeftButton);
  EXPECT_EQ(chosen_, 0);
  EXPECT_FALSE(option_.isChecked());
  EXPECT_FALSE(button_.isDown());
}

TEST_F(FrameTest, ClosedFrameStopsKeysAndFocus) {
  button_.setFocus();
  frame_.SetInputEnabled(false);
  EXPECT_FALSE(button_.hasFocus());
  QTest::keyClick(&button_, Qt::Key_Space);
  QTest::keyClick(&option_, Qt::Key_Down);
  EXPECT_EQ(chosen_, 0);
  outside_.setFocus();
  for (int i = 0; i < 5; ++i) {
    QTest::keyClick(window_.focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(outside_.hasFocus());
  }
  button_.setFocus();
  EXPECT_FALSE(button_.hasFocus());
}

TEST_F(FrameTest, FocusComesBackWhenTheFrameOpens) {
  button_.setFocus();
  frame_.SetInputEnabled(false);
  frame_.SetInputEnabled(true);
  EXPECT_TRUE(button_.hasFocus());
  EXPECT_EQ(button_.focusPolicy(), Qt::StrongFocus);
}

TEST_F(FrameTest, FocusTakenElsewhereMeanwhileStaysThere) {
  button_.setFocus();
  frame_.SetInputEnabled(false);
  outside_.setFocus();
  frame_.SetInputEnabled(true);
  EXPECT_TRUE(outside_.hasFocus());
}

TEST_F(FrameTest, ClosedFrameStopsShortcuts) {
  button_.setShortcut(Qt::CTRL | Qt::Key_B);
  frame_.SetInputEnabled(false);
  outside_.setFocus();
  QTest::keyClick(&outside_, Qt::Key_B, Qt::ControlModifier);
  QTest::qWait(kAnimation);
  EXPECT_EQ(chosen_, 0);
  frame_.SetInputEnabled(true);
  QTest::keyClick(&outside_, Qt::Key_B, Qt::ControlModifier);
  QTest::qWait(kAnimation);
  EXPECT_EQ(chosen_, 1);
}

TEST_F(FrameTest, ClosedFrameStopsClicksByProgram) {
  frame_.SetInputEnabled(false);
  button_.click();
  option_.click();
  button_.animateClick();
  QTest::qWait(kAnimation);
  EXPECT_EQ(chosen_, 0);
  EXPECT_FALSE(option_.isChecked());
}

TEST_F(FrameTest, ClosedFrameStopsAccessibilityActions) {
  frame_.SetInputEnabled(false);
  Do(button_, QAccessibleActionInterface::pressAction());
  Do(option_, QAccessibleActionInterface::toggleAction());
  Do(button_, QAccessibleActionInterface::setFocusAction());
  QTest::qWait(kAnimation);
  EXPECT_EQ(chosen_, 0);
  EXPECT_FALSE(option_.isChecked());
  EXPECT_FALSE(button_.hasFocus());
}

TEST_F(FrameTest, AssistiveToolsSeeWhatCannotBeReached) {
  const auto state = [this] { return QAccessible::queryAccessibleInterface(&button_)->state(); };
  EXPECT_FALSE(state().disabled);
  frame_.SetInputEnabled(false);
  EXPECT_TRUE(state().disabled);
  EXPECT_FALSE(state().focusable);
}

TEST_F(FrameTest, APressThatBeganBehindAClosedFrameNeverCounts) {
  frame_.SetInputEnabled(false);
  button_.animateClick();
  frame_.SetInputEnabled(true);
  QTest::qWait(kAnimation);
  EXPECT_EQ(chosen_, 0);
}

TEST_F(FrameTest, BusyClosesTheFrameWhateverItsState) {
  frame_.SetBusy(true);
  frame_.SetInputEnabled(true);
  QTest::mouseClick(&button_, Qt::LeftButton);
  EXPECT_EQ(chosen_, 0);
  frame_.SetBusy(false);
  QTest::mouseClick(&button_, Qt::LeftButton);
  EXPECT_EQ(chosen_, 1);
}

TEST_F(FrameTest, DisabledButtonTakesNothingInAnOpenFrame) {
  button_.setEnabled(false);
  QTest::mouseClick(&button_, Qt::LeftButton);
  button_.click();
  EXPECT_EQ(chosen_, 0);
}

}  // namespace
}  // namespace kestrin::widgets
