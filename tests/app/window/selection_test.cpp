#include <gtest/gtest.h>

#include <QCursor>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QToolTip>
#include <fstream>

#include "app/widgets/colours.h"
#include "tests/app/testWindow.h"
#include "tests/support/jobBuilder.h"

namespace kestrin::window {
namespace {

using test::SmallJob;
using test::TestWindow;

bool PictureIsBlank(TestWindow& window) {
  const QImage image = window.Find<widgets::PictureBox>("Picture1").Image();
  QImage white = image;
  white.fill(Qt::white);
  return image == white;
}

TEST(Selection, FillsTheWindowAndDrawsTheWirePreview) {
  TestWindow window;
  window.Select(SmallJob(window.folder));
  EXPECT_EQ(window.Text("Label5"), "North.Field");
  EXPECT_TRUE(window.Option(0).isChecked());
  EXPECT_FALSE(PictureIsBlank(window));
  EXPECT_EQ(window->State().job.fileSafeName, "North_Field");
  EXPECT_EQ(window->State().job.dateText, "2006Jun15");
  EXPECT_EQ(window->State().job.exportFolder, window.folder / "TrevaskData/North_Field/2006Jun15");
  EXPECT_TRUE(window.dialogs.warnings.empty());
  for (const char* name : {"Command1_0", "Command2", "Command3", "Command4", "Option1_3"}) {
    EXPECT_TRUE(window.Enabled(name)) << name;
  }
}

TEST(Selection, ANameTooLongForTheWindowIsWholeInAToolTip) {
  TestWindow window;
  const std::string name = "North.Field " + std::string(200, 'w');
  window.Select(SmallJob(window.folder, name + ".sqlite"));
  auto& label = window.Find<widgets::Caption>("Label5");
  ASSERT_NE(label.ShownText().toStdString(), name);
  QTest::mouseMove(&label, QPoint(100, 10));
  QTest::mouseMove(&label, QPoint(101, 11));
  ASSERT_TRUE(QTest::qWaitFor([] { return QToolTip::isVisible(); }, 2000));
  const QString tip = QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
  EXPECT_EQ(QString(tip).remove('\n').toStdString(), name);
  QToolTip::hideText();
  QCursor::setPos(0, 0);
}

TEST(Selection, AsksForJobsInTheProgramsFolderFirstAndWhereTheLastOneWasThen) {
  TestWindow window;
  test::TempFolder elsewhere;
  window.Select(SmallJob(elsewhere));
  window.Click("Command3");
  ASSERT_EQ(window.dialogs.opened.size(), 2U);
  EXPECT_EQ(window.dialogs.opened[0].title, "Select Job");
  EXPECT_EQ(window.dialogs.opened[0].filter, "Job Files (*.sqlite)|*.sqlite");
  EXPECT_EQ(window.dialogs.opened[0].folder, window.folder / "");
  EXPECT_EQ(window.dialogs.opened[1].folder, elsewhere / "");
}

TEST(Selection, StartsOnARemovableDriveWithAJobInItsRoot) {
  TestWindow window;
  window.drives.drives = {{"/fixed", false, true}, {base::WithOwnSeparators("/stick"), true, true}};
  window.drives.filesIn["/fixed/"] = {"a.sqlite"};
  window.drives.filesIn[base::WithOwnSeparators("/stick/")] = {"b.sqlite"};
  window.Click("Command3");
  EXPECT_EQ(window.dialogs.opened.at(0).folder, base::WithOwnSeparators("/stick/"));
}

TEST(Selection, ButtonIsPaleYellowAndAllIsStoppedWhileTheDialogIsOpen) {
  TestWindow window;
  bool looked = false;
  window.dialogs.whileOpen = [&] {
    looked = true;
    EXPECT_EQ(window.Button("Command3").Background(), widgets::kPaleYellow);
    EXPECT_FALSE(window.Enabled("Command1_0"));
    EXPECT_FALSE(window.Enabled("Option1_0"));
    EXPECT_FALSE(window.Find<widgets::Frame>("Frame1").InputEnabled());
    EXPECT_FALSE(window.Enabled("Picture1"));
  };
  window.Click("Command3");
  EXPECT_TRUE(looked);
  EXPECT_EQ(window.Button("Command3").Background(), std::nullopt);
}

TEST(Selection, CancelledBeforeAnyJobLeavesOnlySelect) {
  TestWindow window;
  window.Click("Command3");
  EXPECT_TRUE(window.Enabled("Command3"));
  EXPECT_TRUE(window.Find<widgets::Frame>("Frame1").InputEnabled());
  EXPECT_FALSE(window.Find<widgets::Frame>("Frame2").InputEnabled());
  EXPECT_FALSE(window.Find<widgets::Frame>("Frame4").InputEnabled());
  for (int i = 0; i < 4; ++i) EXPECT_FALSE(window.Option(i).isEnabled());
  EXPECT_EQ(window.Text("Label5"), "");
  window.Select(SmallJob(window.folder));
  EXPECT_EQ(window.Text("Label5"), "North.Field");
  EXPECT_TRUE(window.Find<widgets::Frame>("Frame2").InputEnabled());
}

TEST(Selection, CancelledLaterKeepsTheJob) {
  TestWindow window;
  window.Select(SmallJob(window.folder));
  const QImage before = window.Find<widgets::PictureBox>("Picture1").Image();
  window.Click("Command3");
  EXPECT_EQ(window.Text("Label5"), "North.Field");
  EXPECT_EQ(window.Find<widgets::PictureBox>("Picture1").Image(), before);
  EXPECT_TRUE(window.Enabled("Command2"));
}

TEST(Selection, KeepsTheChosenKindOfPreview) {
  TestWindow window;
  window.Select(SmallJob(window.folder));
  window.Click("Option1_2");
  const QImage coverage = window.Find<widgets::PictureBox>("Picture1").Image();
  window.Select(window.folder / "North.Field.sqlite");
  EXPECT_TRUE(window.Option(2).isChecked());
  EXPECT_EQ(window.Find<widgets::PictureBox>("Picture1").Image(), coverage);
}

TEST(Selection, WarnsOfAnUnknownFormatWordForWord) {
  TestWindow window;
  test::JobBuilder job(window.folder / "old.sqlite");
  job.Version({1, 0}, "3.2.8").Reference({1, 0}, 45, -93).Epoch({1, 5}, 0, 0);
  window.Select(job.Finish());
  ASSERT_EQ(window.dialogs.warnings.size(), 1U);
  EXPECT_EQ(window.dialogs.warnings[0].first, "Kestrin Warning");
  EXPECT_EQ(window.dialogs.warnings[0].second,
            "Job file Format 3.2.8 may be incompatible \r\n"
            "with Kestrin and might not display properly.");
  EXPECT_EQ(window.Text("Label5"), "old");
}

TEST(Selection, WarnsOfANewerJobWordForWord) {
  TestWindow window;
  test::JobBuilder job(window.folder / "new.sqlite");
  job.Version({1, 0}, "3.3.0-1").Reference({1, 0}, 45, -93).Epoch({1, 5}, 0, 0);
  window.Select(job.Finish());
  ASSERT_EQ(window.dialogs.warnings.size(), 1U);
  EXPECT_EQ(window.dialogs.warnings[0].second,
            "Kestrin Version  1.0.0 may be incompatible with Job File Format 3.3.0-1\r\n"
            "and might not display properly.\r\n\r\n"
            "Visit www.kestrin.example to download the latest version of Kestrin.");
}

TEST(Selection, OfAFileThatIsNoDatabaseWarnsAndClearsNameAndPictureOfTheJobBefore) {
  TestWindow window;
  const std::string job = SmallJob(window.folder);
  const std::string whole = test::FileBytes(job);
  for (const std::string& bytes :
       {std::string(), std::string(5000, 'x'), whole.substr(0, whole.size() / 2)}) {
    window.Select(job);
    ASSERT_FALSE(PictureIsBlank(window));
    window.dialogs.warnings.clear();
    std::ofstream(window.folder / "broken.sqlite", std::ios::binary | std::ios::trunc) << bytes;
    window.Select(window.folder / "broken.sqlite");
    ASSERT_EQ(window.dialogs.warnings.size(), 1U);
    EXPECT_EQ(window.dialogs.warnings[0].second,
              "Job file Format  may be incompatible \r\n"
              "with Kestrin and might not display properly.");
    EXPECT_EQ(window.Text("Label5"), "");
    EXPECT_TRUE(PictureIsBlank(window));
    for (const char* name : {"Command1_0", "Command2", "Command4", "Option1_0", "Picture1"}) {
      EXPECT_FALSE(window.Enabled(name)) << name;
    }
    EXPECT_TRUE(window.Enabled("Command3"));
    EXPECT_EQ(test::FileBytes(window.folder / "broken.sqlite"), bytes);
  }
}

TEST(Preview, EveryKindDrawsAnotherPicture) {
  TestWindow window;
  window.Select(SmallJob(window.folder));
  std::vector<QImage> pictures;
  for (int kind = 0; kind < 4; ++kind) {
    window.Click("Option1_" + std::to_string(kind));
    pictures.push_back(window.Find<widgets::PictureBox>("Picture1").Image());
    for (int other = 0; other < kind; ++other) {
      EXPECT_NE(pictures[static_cast<std::size_t>(other)], pictures.back()) << kind << other;
    }
  }
  window.Click("Option1_0");
  EXPECT_EQ(window.Find<widgets::PictureBox>("Picture1").Image(), pictures[0]);
}

TEST(Preview, WithoutAJobAnOptionOnlyBecomesSelected) {
  TestWindow window;
  window.Click("Option1_3");
  EXPECT_TRUE(window.Option(3).isChecked());
  EXPECT_TRUE(PictureIsBlank(window));
}

TEST(Preview, SelectedByKeyboardToo) {
  TestWindow window;
  window.Select(SmallJob(window.folder));
  const QImage wire = window.Find<widgets::PictureBox>("Picture1").Image();
  window.Option(0).setFocus();
  QTest::keyClick(&window.Option(0), Qt::Key_Down);
  EXPECT_TRUE(window.Option(1).isChecked());
  EXPECT_NE(window.Find<widgets::PictureBox>("Picture1").Image(), wire);
}

TEST(Preview, ProgressRunsWithTheTimerAndIsGoneAfterwards) {
  TestWindow window;
  const std::string job = SmallJob(window.folder, "long.sqlite", 30000);
  int widest = 0;
  bool shown = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    shown = shown || window.Find<>("Label8").isVisible();
    if (window.Find<>("Shape1").isVisible()) {
      widest = std::max(widest, window.Find<>("Shape1").width());
    }
  });
  watch.start(1);
  window.Select(job);
  EXPECT_TRUE(shown);
  EXPECT_GT(widest, 20);
  EXPECT_LE(widest, 105);
  EXPECT_FALSE(window.Find<>("Label8").isVisible());
  EXPECT_FALSE(window.Find<QTimer>("TimerPreview").isActive());
}

}  // namespace
}  // namespace kestrin::window
