#include "app/window/qtDialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <fstream>
#include <functional>

#include "tests/support/tempFolder.h"

namespace kestrin::window {
namespace {

class QtDialogsTest : public testing::Test {
 protected:
  QtDialogsTest() { window_.setWindowTitle("Kestrin"); }

  /// Looks at the next dialog or box once it is on screen, and answers it; closed
  /// unanswered so that no test can hang on it.
  template <class Type>
  void WhenShown(const std::function<void(Type&)>& answer) {
    QTimer::singleShot(0, &window_, [this, answer] {
      auto* shown = qobject_cast<Type*>(QApplication::activeModalWidget());
      if (shown != nullptr) {
        seen_ = true;
        answer(*shown);
      }
      if (auto* open = qobject_cast<QDialog*>(QApplication::activeModalWidget())) open->reject();
    });
  }
  ~QtDialogsTest() override { EXPECT_TRUE(seen_); }

  QWidget window_;
  QtDialogs dialogs_{window_};
  bool seen_ = false;
};

TEST_F(QtDialogsTest, AWarningHasAnExclamationMarkItsTitleAndOk) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    EXPECT_EQ(box.windowTitle(), "Kestrin Warning");
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    EXPECT_EQ(box.text(), "one \ntwo <b>");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
  });
  dialogs_.ShowWarning("Kestrin Warning", "one \r\ntwo <b>");
}

TEST_F(QtDialogsTest, AMessageBearsTheProgramsTitle) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
    EXPECT_EQ(box.windowTitle(), "Kestrin");
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
  });
  dialogs_.ShowMessage("Error opening: -14");
}

TEST_F(QtDialogsTest, AQuestionIsAnsweredWithYes) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Kestrin");
    EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(box.text(), "Really?  Yes?");
    box.button(QMessageBox::Yes)->click();
  });
  EXPECT_TRUE(dialogs_.AskYesNo("Really?  Yes?"));
}

TEST_F(QtDialogsTest, AQuestionThatIsClosedIsAnsweredWithNo) {
  WhenShown<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_FALSE(dialogs_.AskYesNo("Really?"));
}

class FileDialogs : public QtDialogsTest {
 protected:
  FileDialogs() { std::ofstream(There()) << "x"; }
  std::string There() const { return folder_ / "there.shp"; }
  /// A path as the dialogs give it to the program, which Qt itself always writes with "/".
  static std::string Native(const QString& path) {
    return QDir::toNativeSeparators(path).toStdString();
  }

  test::TempFolder folder_;
};

TEST_F(FileDialogs, SavingProposesANameAndAsksNoOverwriteQuestion) {
  int boxes = 0;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      ++boxes;
      box->reject();
    }
  });
  watch.start(20);
  WhenShown<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save Shape");
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(Native(dialog.directory().absolutePath()), folder_.Path().string());
    EXPECT_EQ(dialog.nameFilters(), QStringList{"Shape Files (*.shp)"});
    ASSERT_EQ(dialog.selectedFiles().size(), 1);
    EXPECT_EQ(Native(dialog.selectedFiles().first()), There());
    QMetaObject::invokeMethod(&dialog, "accept");
  });
  const auto chosen = dialogs_.SaveFile(
      {"Save Shape", folder_.Path().string(), "Shape Files (*.shp)|*.shp", "there.shp"});
  EXPECT_EQ(chosen, There());
  EXPECT_EQ(boxes, 0);
}

TEST_F(FileDialogs, LeaveTheProgramWhereItWas) {
  const QString before = QDir::currentPath();
  WhenShown<QFileDialog>(
      [this](QFileDialog&) { QDir::setCurrent(QString::fromStdString(folder_.Path().string())); });
  dialogs_.OpenFile({"Select Job", folder_.Path().string(), "Job Files (*.sqlite)|*.sqlite", ""});
  EXPECT_EQ(QDir::currentPath(), before);
}

TEST_F(FileDialogs, OpeningTakesAFileThatExists) {
  WhenShown<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Select Job");
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
    EXPECT_EQ(Native(dialog.directory().absolutePath()), folder_.Path().string());
    EXPECT_EQ(dialog.nameFilters(), QStringList{"Job Files (*.sqlite)"});
  });
  EXPECT_EQ(dialogs_.OpenFile(
                {"Select Job", folder_.Path().string(), "Job Files (*.sqlite)|*.sqlite", ""}),
            std::nullopt);
}

}  // namespace
}  // namespace kestrin::window
