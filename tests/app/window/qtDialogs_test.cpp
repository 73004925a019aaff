#include "app/window/qtDialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <algorithm>
#include <chrono>
#include <filesystem>
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

TEST_F(QtDialogsTest, EscapeClosesEveryBoxAndEnterAnswersWithTheFirstButton) {
  const auto press = [this](Qt::Key key) {
    WhenShown<QMessageBox>([key](QMessageBox& box) {
      QTest::keyClick(&box, key);
      EXPECT_FALSE(box.isVisible()) << key;
    });
  };
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
    press(key);
    dialogs_.ShowMessage("Error opening: 14");
    press(key);
    dialogs_.ShowWarning("Kestrin Warning", "beware");
    press(key);
    EXPECT_EQ(dialogs_.AskYesNo("Really?"), key != Qt::Key_Escape);
  }
}

TEST_F(QtDialogsTest, ASmallBoxIsWideEnoughForItsTitleAndItsTextBeginsAtTheMargin) {
  const auto look = [](QMessageBox& box) {
    constexpr int kThreeButtonsAndIcon = 120;
    const int title = box.fontMetrics().horizontalAdvance(box.windowTitle());
    EXPECT_GE(box.width(), title + kThreeButtonsAndIcon);
    const auto* text = box.findChild<QLabel*>("qt_msgbox_label");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->x(), box.layout()->contentsRect().left());
    EXPECT_LE(text->contentsMargins().left() + std::max(0, text->indent()), 2);
    EXPECT_GE(text->width(), text->sizeHint().width());
    EXPECT_GE(text->contentsRect().width(), box.fontMetrics().horizontalAdvance("E"));
  };
  for (const char* message : {"E", "Error opening: 14"}) {
    WhenShown<QMessageBox>(look);
    dialogs_.ShowMessage(message);
  }
  WhenShown<QMessageBox>(look);
  dialogs_.AskYesNo("Shape File already exists.  Do you want to overwrite it?");
}

TEST_F(QtDialogsTest, ALongMessageTakesTheWholeWidthOfItsBox) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    const auto* text = box.findChild<QLabel*>("qt_msgbox_label");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->geometry().left(), box.layout()->contentsRect().left());
    EXPECT_EQ(text->geometry().right(), box.layout()->contentsRect().right());
  });
  QString path;
  for (int i = 0; i < 20; ++i) path += "/some folder";
  dialogs_.ShowMessage(("Error writing: " + path).toStdString());
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

constexpr const char* kNewest = "Planting of the north field, second half.sqlite";
/// Wider than the dialog.
const std::string kOldest = std::string(120, 'w') + ".sqlite";

/// Files of different ages, the newest neither first nor last by name.
void MakeJobs(const std::filesystem::path& folder) {
  using std::chrono::hours;
  const auto now = std::filesystem::file_time_type::clock::now();
  for (const auto& [name, age] : {std::pair<std::string, hours>{"A.sqlite", hours(30)},
                                  {kNewest, hours(2)},
                                  {kOldest, hours(900)}}) {
    std::ofstream(folder / name) << "x";
    std::filesystem::last_write_time(folder / name, now - age);
  }
}

TEST_F(FileDialogs, ShowAllColumnsAndTheNewestFileFirst) {
  MakeJobs(folder_.Path());
  // What any program's dialog showed is how the next one of any other begins.
  std::make_unique<QFileDialog>()->setViewMode(QFileDialog::List);
  WhenShown<QFileDialog>([](QFileDialog& dialog) {
    auto* list = dialog.findChild<QTreeView*>("treeView");
    ASSERT_NE(list, nullptr);
    ASSERT_TRUE(list->isVisible());
    const auto name = [&](int row) {
      return list->model()->index(row, 0, list->rootIndex()).data().toString().toStdString();
    };
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return name(0) == kNewest && name(1) == "A.sqlite" && name(2) == kOldest; }, 5000))
        << name(0) << ' ' << name(1) << ' ' << name(2);
    QTest::qWait(50);
    const QHeaderView& columns = *list->header();
    for (int c = 0; c < 4; ++c)
      EXPECT_LE(columns.length(), list->viewport()->width()) << "no column is out of view";
    for (int column = 0; column < columns.count(); ++column) {
      const QModelIndex index = list->model()->index(0, column, list->rootIndex());
      const QString text = index.data().toString();
      EXPECT_GT(list->columnWidth(column), list->fontMetrics().horizontalAdvance(text))
          << text.toStdString();
    }
  });
  dialogs_.OpenFile({"Select Job", folder_.Path().string(), "Job Files (*.sqlite)|*.sqlite", ""});
}

TEST_F(FileDialogs, AreCancelledByEscape) {
  for (const bool save : {false, true}) {
    WhenShown<QFileDialog>([](QFileDialog& dialog) {
      QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
      EXPECT_FALSE(dialog.isVisible());
    });
    const flow::FileRequest request{"Title", folder_.Path().string(), "Any (*.shp)|*.shp", "x.shp"};
    EXPECT_EQ(save ? dialogs_.SaveFile(request) : dialogs_.OpenFile(request), std::nullopt);
  }
}

TEST_F(FileDialogs, AreAcceptedByEnter) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    WhenShown<QFileDialog>([key](QFileDialog& dialog) {
      QTest::keyClick(dialog.focusWidget(), key);
      EXPECT_FALSE(dialog.isVisible());
    });
    const auto chosen =
        dialogs_.SaveFile({"Title", folder_.Path().string(), "Any (*.shp)|*.shp", "x.shp"});
    EXPECT_EQ(chosen, folder_ / "x.shp");
  }
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
