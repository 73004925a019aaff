#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>

#include "tests/app/testWindow.h"

namespace kestrin::window {
namespace {

using test::SmallJob;

class Keyboard : public test::WindowTest {
 protected:
  void Focus(const std::string& name) { window_.Find<>(name).setFocus(); }
  std::string Focused() const {
    const QWidget* focused = QApplication::focusWidget();
    return focused == nullptr ? "" : focused->objectName().toStdString();
  }
  /// Where Tab goes from the button before the options, and Shift+Tab from the one behind.
  void ExpectOptionsAreEnteredAt(const std::string& name) {
    Focus("Command3");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focused(), name);
    Focus("Command4");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Focused(), name);
  }
};

struct KeyCase {
  Qt::Key key;
  Qt::KeyboardModifiers with;
};
constexpr KeyCase kPressing[] = {{Qt::Key_Space, Qt::NoModifier},
                                 {Qt::Key_Return, Qt::NoModifier},
                                 {Qt::Key_Enter, Qt::KeypadModifier}};

TEST_F(Keyboard, EnterAndTheKeypadsEnterPressTheFocusedButtonLikeTheSpaceBar) {
  for (const KeyCase& each : kPressing) {
    window_.dialogs.opened.clear();
    Focus("Command3");
    Press(each.key, each.with);
    EXPECT_EQ(window_.dialogs.opened.size(), 1U) << each.key;
    EXPECT_EQ(Focused(), "Command3") << each.key;
  }
}

TEST_F(Keyboard, EnterPressesEveryButtonAndNoOther) {
  window_.Select(SmallJob(window_.folder));
  for (const char* name : {"Command1_0", "Command1_1", "Command1_2", "Command1_3", "Command2"}) {
    window_.dialogs.saved.clear();
    Focus(name);
    Press(Qt::Key_Return);
    EXPECT_EQ(window_.dialogs.saved.size(), 1U) << name;
  }
  EXPECT_EQ(window_.dialogs.opened.size(), 1U);
}

TEST_F(Keyboard, EnterSelectsTheFocusedOption) {
  for (const KeyCase& each : kPressing) {
    window_.Option(1).setChecked(true);
    Focus("Option1_2");
    Press(each.key, each.with);
    EXPECT_TRUE(window_.Option(2).isChecked()) << each.key;
  }
}

TEST_F(Keyboard, EnterHeldDownPressesOnceAndWhenItIsLetGo) {
  auto& button = window_.Button("Command3");
  button.setFocus();
  const auto send = [&](QEvent::Type type, bool again) {
    QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, "\r", again);
    QApplication::sendEvent(&button, &event);
  };
  send(QEvent::KeyPress, false);
  for (int i = 0; i < 3; ++i) {
    send(QEvent::KeyRelease, true);
    send(QEvent::KeyPress, true);
  }
  EXPECT_TRUE(window_.dialogs.opened.empty()) << "the dialog would get the next of them";
  send(QEvent::KeyRelease, false);
  EXPECT_EQ(window_.dialogs.opened.size(), 1U);
}

TEST_F(Keyboard, EnterLetGoOverAButtonThatItWasNotPressedOnPressesNothing) {
  Focus("Command3");
  QTest::keyRelease(&window_.Find<>("Command3"), Qt::Key_Return);
  EXPECT_TRUE(window_.dialogs.opened.empty());
}

TEST_F(Keyboard, EscapeClosesNoWindow) {
  Focus("Command3");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(window_->isVisible());
}

TEST_F(Keyboard, TabEntersTheOptionsAtTheSelectedOne) {
  window_.Select(SmallJob(window_.folder));
  ExpectOptionsAreEnteredAt("Option1_0");
  for (int kind = 3; kind >= 0; --kind) {
    const std::string name = "Option1_" + std::to_string(kind);
    window_.Click(name);
    ExpectOptionsAreEnteredAt(name);
  }
}

TEST_F(Keyboard, TabEntersTheOptionsAtTheOneThatASelectionChose) {
  Focus("Option1_2");
  window_.Select(SmallJob(window_.folder));
  ASSERT_TRUE(window_.Option(0).isChecked());
  ExpectOptionsAreEnteredAt("Option1_0");
  Press(Qt::Key_Down);
  EXPECT_TRUE(window_.Option(1).isChecked()) << "the arrows choose from there";
}

TEST_F(Keyboard, TabEntersTheOptionsAtTheSelectedOneAlsoAfterTheFocusWasOnAnother) {
  window_.Select(SmallJob(window_.folder));
  QTest::mousePress(&window_.Option(3), Qt::LeftButton);
  QTest::mouseRelease(&window_.Option(3), Qt::LeftButton, {}, QPoint(-50, -50));
  ASSERT_TRUE(window_.Option(0).isChecked());
  ExpectOptionsAreEnteredAt("Option1_0");
}

TEST_F(Keyboard, TabEntersTheOptionsAtTheOneSelectedWithoutTheFocus) {
  window_.Select(SmallJob(window_.folder));
  Focus("Command3");
  window_.Option(2).click();
  ExpectOptionsAreEnteredAt("Option1_2");
}

}  // namespace
}  // namespace kestrin::window
