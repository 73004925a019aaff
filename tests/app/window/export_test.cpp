#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>
#include <filesystem>

#include "app/widgets/colours.h"
#include "tests/app/testWindow.h"
#include "tests/support/database.h"
#include "tests/support/jobBuilder.h"

namespace kestrin::window {
namespace {

using test::SmallJob;
using test::TestWindow;

/// What a kind's procedure finds and does in a test.
std::function<void(const std::string& base, exports::ExportRun& run)>& Procedure() {
  static std::function<void(const std::string&, exports::ExportRun&)> procedure;
  return procedure;
}

exports::ExportOutcome Write(const std::string& base, const std::string&, exports::ExportRun& run) {
  if (!Procedure()) return {};
  Procedure()(base, run);
  return {.made = true};
}

constexpr exports::ExportKinds kKinds{{{"wire", "_WIRE", Write},
                                       {"boom", "_BOOM", Write},
                                       {"poly", "_POLY", Write},
                                       {"point", "_POINT", Write}}};

void Touch(exports::ExportRun& run, const std::string& base) {
  for (const char* extension : {".shp", ".shx", ".dbf"}) {
    run.files.Remove(base + extension);
    run.files.Create(base + extension)->Publish();
  }
}

class ExportTest : public testing::Test {
 protected:
  ExportTest() {
    Procedure() = [](const std::string& base, exports::ExportRun& run) { Touch(run, base); };
    window_.Select(SmallJob(window_.folder));
  }
  ~ExportTest() override { Procedure() = nullptr; }

  std::string Out(const std::string& name) { return window_.folder / name; }
  std::string Button(int kind) { return "Command1_" + std::to_string(kind); }
  std::optional<QColor> Colour(const std::string& button) {
    return window_.Button(button).Background();
  }

  TestWindow window_{[](Surroundings& around) { around.kinds = &kKinds; }};
};

TEST_F(ExportTest, OneKindIsMadeUnderTheNameChosen) {
  window_.dialogs.toSave = {Out("mine.shp")};
  window_.Click("Command1_2");
  EXPECT_TRUE(std::filesystem::exists(Out("mine.shp")));
  EXPECT_EQ(window_.Text("Label1_2"), "Shape File Created");
  EXPECT_EQ(Colour("Command1_2"), widgets::kGreen);
  EXPECT_EQ(Colour("Command1_0"), std::nullopt);
  const flow::FileRequest& asked = window_.dialogs.saved.at(0);
  EXPECT_EQ(asked.title, "Save Shape");
  EXPECT_EQ(asked.filter, "Shape Files (*.shp)|*.shp");
  EXPECT_EQ(asked.fileName, "North_Field_2006Jun15_POLY.shp");
  EXPECT_EQ(asked.folder, Out("TrevaskData/North_Field/2006Jun15"));
  EXPECT_TRUE(std::filesystem::is_directory(asked.folder));
}

TEST_F(ExportTest, AKindThatFailsIsRed) {
  Procedure() = nullptr;
  window_.dialogs.toSave = {Out("mine.shp")};
  window_.Click("Command1_0");
  EXPECT_EQ(window_.Text("Label1_0"), "Error Creating File");
  EXPECT_EQ(Colour("Command1_0"), widgets::kRed);
  EXPECT_TRUE(window_.Enabled("Command1_0"));
}

TEST_F(ExportTest, CancellingTheDialogOnlyRestoresTheControls) {
  window_.Click("Command2");
  EXPECT_EQ(window_.Text("Label1_0"), "");
  EXPECT_EQ(Colour("Command2"), std::nullopt);
  EXPECT_TRUE(window_->State().job.idle);
  EXPECT_TRUE(window_.Enabled("Command1_3"));
}

TEST_F(ExportTest, SecondExportAsksBeforeItOverwrites) {
  const std::string name = Out("TrevaskData/North_Field/2006Jun15/North_Field_2006Jun15_BOOM.shp");
  window_.dialogs.toSave = {name, name};
  window_.Click("Command1_1");
  EXPECT_TRUE(window_.dialogs.questions.empty());
  window_.dialogs.answers = {false};
  int calls = 0;
  Procedure() = [&](const std::string&, exports::ExportRun&) { ++calls; };
  window_.Click("Command1_1");
  ASSERT_EQ(window_.dialogs.questions.size(), 1U);
  EXPECT_EQ(window_.dialogs.questions[0],
            "Shape File already exists.  Do you want to overwrite it?");
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(window_.Text("Label1_1"), "Shape File Created");
  EXPECT_EQ(Colour("Command1_1"), std::nullopt);
  EXPECT_TRUE(std::filesystem::exists(name));
}

TEST_F(ExportTest, CreateAllMakesAllFourAndCopiesTheJobOnce) {
  std::filesystem::create_directory(Out("sets"));
  window_.dialogs.toSave = {Out("sets/all.shp")};
  window_.Click("Command2");
  for (const char* suffix : {"_WIRE", "_BOOM", "_POLY", "_POINT"}) {
    EXPECT_TRUE(std::filesystem::exists(Out("sets/all") + suffix + ".dbf")) << suffix;
  }
  EXPECT_EQ(test::FileBytes(Out("sets/North.Field.sqlite")),
            test::FileBytes(Out("North.Field.sqlite")));
  for (int kind = 0; kind < 4; ++kind) EXPECT_EQ(Colour(Button(kind)), widgets::kGreen);
  EXPECT_EQ(Colour("Command2"), widgets::kGreen);
  EXPECT_TRUE(window_.dialogs.questions.empty());
}

TEST_F(ExportTest, TheCopyOfAJobThatStillHasItsLogHoldsAllOfIt) {
  test::Database console(Out("North.Field.sqlite"));
  console.Execute("PRAGMA journal_mode=WAL; PRAGMA wal_autocheckpoint=0")
      .Execute("UPDATE GpsDataTable SET speed = 77");
  std::filesystem::create_directory(Out("sets"));
  window_.dialogs.toSave = {Out("sets/one.shp")};
  window_.Click("Command1_0");
  EXPECT_EQ(test::Ask(Out("sets/North.Field.sqlite"), "SELECT min(speed) FROM GpsDataTable"), 77);
  EXPECT_FALSE(std::filesystem::exists(Out("sets/North.Field.sqlite-wal")));
  EXPECT_TRUE(window_.dialogs.messages.empty());
}

TEST_F(ExportTest, CreateAllGoesBackToTheButtonFaceAfterThreeSeconds) {
  window_.dialogs.toSave = {Out("all.shp")};
  window_.Click("Command2");
  EXPECT_EQ(Colour("Command2"), widgets::kGreen);
  QTest::qWait(2700);
  EXPECT_EQ(Colour("Command2"), widgets::kGreen);
  QTest::qWait(600);
  EXPECT_EQ(Colour("Command2"), std::nullopt);
  EXPECT_EQ(Colour("Command1_0"), widgets::kGreen);
  EXPECT_FALSE(window_.Find<QTimer>("Timer2").isActive());
}

TEST_F(ExportTest, RunningKindAndCreateAllStayLivelyWhileTheRestIsGrey) {
  std::vector<std::string> seen;
  Procedure() = [&](const std::string& base, exports::ExportRun& run) {
    std::string lively;
    for (int kind = 0; kind < 4; ++kind) lively += window_.Enabled(Button(kind)) ? '1' : '0';
    lively += window_.Enabled("Command2") ? " all" : "";
    lively += window_.Enabled("Command3") ? " select" : "";
    lively += ' ' + window_.Text("Label10");
    seen.push_back(lively);
    const int kind = static_cast<int>(seen.size()) - 1;
    EXPECT_EQ(Colour(Button(kind)), widgets::kPaleYellow);
    EXPECT_EQ(window_.Text("Label1_" + std::to_string(kind)), "Creating Shape File");
    EXPECT_TRUE(window_.Find<>("Label9").isVisible());
    EXPECT_TRUE(window_.Find<QTimer>("TimerShape").isActive());
    EXPECT_TRUE(window_.Enabled("Picture1"));
    Touch(run, base);
  };
  window_.dialogs.toSave = {Out("all.shp")};
  window_.Click("Command2");
  EXPECT_EQ(seen, (std::vector<std::string>{
                      "1000 all Creating Wire Shape", "0100 all Creating Boom Shape",
                      "0010 all Creating Poly Shape", "0001 all Creating Point Shape"}));
  EXPECT_FALSE(window_.Find<>("Label9").isVisible());
  EXPECT_FALSE(window_.Find<QTimer>("TimerShape").isActive());
}

TEST_F(ExportTest, NothingStartsWhileAnExportRuns) {
  int calls = 0;
  Procedure() = [&](const std::string& base, exports::ExportRun& run) {
    ++calls;
    const QImage picture = window_.Find<widgets::PictureBox>("Picture1").Image();
    for (const char* name : {"Command1_0", "Command1_1", "Command2", "Command3", "Command4",
                             "Option1_0", "Option1_2"}) {
      window_.Click(name);
      window_.Find<QAbstractButton>(name).click();
      QTest::keyClick(&window_.Find<>(name), Qt::Key_Space);
      run.host.Yield();
    }
    QTest::qWait(20);
    EXPECT_EQ(window_.Find<widgets::PictureBox>("Picture1").Image(), picture);
    Touch(run, base);
  };
  window_.dialogs.toSave = {Out("one.shp"), Out("two.shp")};
  window_.Click("Command1_1");
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(window_.dialogs.saved.size(), 1U);
  EXPECT_EQ(window_.dialogs.opened.size(), 1U);
  EXPECT_TRUE(window_.Option(0).isChecked());
  EXPECT_EQ(window_.Text("Label1_1"), "Shape File Created");
}

TEST_F(ExportTest, ProgressBarGrowsWithTheRows) {
  int width = 0;
  Procedure() = [&](const std::string& base, exports::ExportRun& run) {
    for (int i = 0; i < 60; ++i) run.host.CountRow();
    QTest::qWait(150);
    width = window_.Find<>("Shape2").width();
    Touch(run, base);
  };
  window_.dialogs.toSave = {Out("one.shp")};
  window_.Click("Command1_0");
  EXPECT_NEAR(width, 105 / 2, 1);
}

TEST_F(ExportTest, WhatCannotBeWrittenIsSaidWithPathAndReason) {
  Procedure() = [](const std::string& base, exports::ExportRun&) {
    throw base::FileError(base + ".shp", "No space left on device");
  };
  window_.dialogs.toSave = {Out("one.shp")};
  window_.Click("Command1_0");
  ASSERT_EQ(window_.dialogs.messages.size(), 1U);
  EXPECT_EQ(window_.dialogs.messages[0],
            "Error writing: " + Out("one.shp") + ": No space left on device");
  EXPECT_EQ(window_.Text("Label1_0"), "Error Creating File");
}

TEST_F(ExportTest, AJobWithNothingToExportIsSaid) {
  Procedure() = nullptr;
  window_.dialogs.toSave = {Out("one.shp")};
  window_.Click("Command1_0");
  EXPECT_EQ(window_.dialogs.messages, std::vector<std::string>{"No set made: nothing to export"});
  EXPECT_EQ(window_.Text("Label1_0"), "Error Creating File");
}

TEST_F(ExportTest, AJobThatIsGoneIsSaidAndNothingAsked) {
  std::filesystem::remove(Out("North.Field.sqlite"));
  for (const char* button : {"Command1_2", "Command2"}) {
    window_.dialogs.messages.clear();
    window_.Click(button);
    EXPECT_EQ(window_.dialogs.messages,
              std::vector<std::string>{"Error opening: " + Out("North.Field.sqlite") +
                                       ": the file is no longer there"});
    EXPECT_TRUE(window_.dialogs.saved.empty());
    EXPECT_EQ(window_.Text("Label1_2"), "");
    EXPECT_TRUE(window_.Enabled("Command1_3"));
    EXPECT_TRUE(window_->State().job.idle);
  }
}

TEST_F(ExportTest, ACopyOfTheJobThatFailsIsSaidAndTheSetStays) {
  std::filesystem::create_directory(Out("sets"));
  Procedure() = [&](const std::string& base, exports::ExportRun& run) {
    Touch(run, base);
    std::filesystem::remove(Out("North.Field.sqlite"));
  };
  window_.dialogs.toSave = {Out("sets/one.shp")};
  window_.Click("Command1_0");
  ASSERT_EQ(window_.dialogs.messages.size(), 1U);
  EXPECT_TRUE(window_.dialogs.messages[0].starts_with("Error copying: "));
  EXPECT_EQ(window_.Text("Label1_0"), "Shape File Created");
  EXPECT_FALSE(std::filesystem::exists(Out("sets/North.Field.sqlite")));
  EXPECT_TRUE(window_.Enabled("Command1_3"));
}

/// The window's own exports, and jobs they end on.
class RealExport : public testing::Test {
 protected:
  std::string Out(const std::string& name) { return window_.folder / name; }

  void Press(const std::string& button) {
    window_.dialogs.toSave = {Out("a.shp")};
    window_.Click(button);
  }

  TestWindow window_;
};

TEST_F(RealExport, OfAJobThatReturnsToItsFirstRatesSaysWhereAndThatNoSetWasMade) {
  test::JobBuilder job(Out("returns.sqlite"));
  job.Version({1345, 0}, "3.2.8-1").Reference({1345, 0}, 42, -93);
  job.Implement({1345, 0}, "Boom", {{3, 0, 0, 0}});
  for (int i = 0; i < 8; ++i) job.Epoch({1345, i * 1000}, i, i);
  job.ActualRates({1345, 0}, 1).ActualRates({1345, 2000}, 2).ActualRates({1345, 4000}, 1);
  window_.Select(job.Finish());
  for (const char* button : {"Command1_1", "Command2"}) {
    window_.dialogs.messages.clear();
    Press(button);
    EXPECT_EQ(window_.dialogs.messages,
              std::vector<std::string>{
                  "No boom set made: at epoch 5 (week 1345, millisecond 4000) the job returns to "
                  "its first rates, and a boom set cannot hold that"});
    EXPECT_FALSE(std::filesystem::exists(Out("a.shp")));
    EXPECT_FALSE(std::filesystem::exists(Out("a_BOOM.shp")));
    EXPECT_TRUE(window_.Enabled("Command1_1"));
    EXPECT_TRUE(window_->State().job.idle);
  }
}

TEST_F(RealExport, OfAJobThatEndsInAReadErrorSaysHowManyEpochsTheSetHolds) {
  constexpr int kEpochsPerLeg = 1000;
  const std::string job = SmallJob(window_.folder, "damaged.sqlite", kEpochsPerLeg);
  test::Database(job).Execute("CREATE INDEX byTime ON GpsDataTable (gpsWeek, gpsMsec)");
  test::DamageIndexPage(job);
  window_.Select(job);
  Press("Command1_0");
  EXPECT_EQ(window_.Text("Label1_0"), "Shape File Created");
  ASSERT_EQ(window_.dialogs.warnings.size(), 1U);
  const auto& [title, text] = window_.dialogs.warnings[0];
  EXPECT_EQ(title, "Kestrin Warning");
  EXPECT_TRUE(text.starts_with("The job could not be read to its end: the set holds ")) << text;
  EXPECT_TRUE(text.ends_with(" of 2000 epochs, code 11")) << text;
}

/// Answers the window's own next file dialog with a path, and says where it stood. One
/// that does not take the path is cancelled, so that no test can hang on it.
void AnswerFileDialog(QWidget& window, const std::string& path, std::string& folder) {
  auto* watch = new QTimer(&window);
  QObject::connect(watch, &QTimer::timeout, [watch, path, &folder] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    watch->deleteLater();
    folder = QDir::toNativeSeparators(dialog->directory().absolutePath()).toStdString();
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path));
    QMetaObject::invokeMethod(dialog, "accept");
    if (dialog->isVisible()) dialog->reject();
  });
  watch->start(5);
}

TEST_F(ExportTest, TheNextSaveDialogStartsInTheExportFolderWhereverTheLastOneSaved) {
  test::TempFolder elsewhere;
  TestWindow window([](Surroundings& around) {
    around.kinds = &kKinds;
    around.dialogs = nullptr;
  });
  std::string folder;
  AnswerFileDialog(*window, SmallJob(elsewhere), folder);
  window.Click("Command3");
  ASSERT_EQ(window.Text("Label5"), "North.Field");
  const std::string exports = window.folder / "TrevaskData/North_Field/2006Jun15";
  for (int kind = 0; kind < 3; ++kind) {
    AnswerFileDialog(*window, elsewhere / ("set" + std::to_string(kind) + ".shp"), folder);
    window.Click(Button(kind));
    EXPECT_EQ(window.Text("Label1_" + std::to_string(kind)), "Shape File Created");
    EXPECT_EQ(folder, exports) << kind;
  }
}

TEST(ExportWithoutJob, CommandsOnlyEnableTheControlsAgain) {
  TestWindow window;
  window.Click("Command1_0");
  window.Click("Command2");
  EXPECT_TRUE(window.dialogs.saved.empty());
  EXPECT_TRUE(window.dialogs.messages.empty());
  EXPECT_TRUE(window.Enabled("Command2"));
  EXPECT_TRUE(window->State().job.idle);
}

}  // namespace
}  // namespace kestrin::window
