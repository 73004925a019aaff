#include <gtest/gtest.h>

#include <QTimer>
#include <filesystem>
#include <fstream>

#include "tests/app/testWindow.h"

namespace kestrin::window {
namespace {

using test::TestWindow;

TEST(StartUp, EverythingIsEnabledAndNothingLoaded) {
  TestWindow window;
  for (const char* name :
       {"Command1_0", "Command1_1", "Command1_2", "Command1_3", "Command2", "Command3", "Command4",
        "Option1_0", "Option1_1", "Option1_2", "Option1_3", "Picture1"}) {
    EXPECT_TRUE(window.Enabled(name)) << name;
  }
  for (const char* name : {"Frame1", "Frame2", "Frame4"}) {
    EXPECT_TRUE(window.Find<widgets::Frame>(name).AcceptsInput()) << name;
  }
  for (int i = 0; i < 4; ++i) EXPECT_FALSE(window.Option(i).isChecked());
  EXPECT_EQ(window.Text("Label5"), "");
  EXPECT_EQ(window->State().preview.jobPath, "");
  EXPECT_TRUE(window->State().job.idle);
}

TEST(StartUp, MakesTheDataFolderBesideTheProgram) {
  TestWindow window;
  EXPECT_TRUE(std::filesystem::is_directory(window.folder / "TrevaskData"));
  EXPECT_EQ(window->State().dataFolder, window.folder / "TrevaskData/");
}

TEST(StartUp, ADataFolderThatIsThereIsKept) {
  test::TempFolder folder;
  std::filesystem::create_directory(folder / "TrevaskData");
  std::filesystem::create_directory(folder / "TrevaskData/kept");
  TestWindow window(
      [&](Surroundings& around) { around.applicationFolder = folder.Path().string(); });
  EXPECT_TRUE(std::filesystem::exists(folder / "TrevaskData/kept"));
}

TEST(StartUp, GoesOnWhereTheDataFolderCanBeMadeNowhere) {
  test::TempFolder folder;
  std::ofstream(folder / "file") << "no folder";
  TestWindow window([&](Surroundings& around) {
    around.applicationFolder = folder / "missing/program";
    dynamic_cast<test::ScriptedDialogs&>(*around.dialogs).documents = folder / "file";
  });
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(window->State().dataFolder, folder / "missing/program/TrevaskData/");
}

TEST(StartUp, TheDataFolderIsInTheDocumentsWhereTheProgramsFolderCannotBeWritten) {
  test::TempFolder home;
  std::ofstream(home / "TrevaskData") << "in the way";
  TestWindow window([&](Surroundings& around) {
    around.applicationFolder = home.Path().string();
    dynamic_cast<test::ScriptedDialogs&>(*around.dialogs).documents = home / "Documents";
  });
  EXPECT_EQ(window->State().dataFolder, home / "Documents/TrevaskData/");
  EXPECT_TRUE(std::filesystem::is_empty(home / "Documents/TrevaskData"));

  const std::string job = test::SmallJob(window.folder);
  const std::string set =
      home / "Documents/TrevaskData/North_Field/2006Jun15/North_Field_2006Jun15_WIRE.shp";
  window.Select(job);
  EXPECT_EQ(window.dialogs.opened.at(0).folder, home / "");
  window.dialogs.toSave = {set};
  window.Click("Command1_0");
  EXPECT_EQ(window.dialogs.saved.at(0).folder,
            home / "Documents/TrevaskData/North_Field/2006Jun15");
  EXPECT_EQ(window.Text("Label1_0"), "Shape File Created");
  EXPECT_TRUE(window.dialogs.questions.empty());

  window.Select(job);
  EXPECT_EQ(window.Text("Label1_0"), "Shape File Exists");
  window.dialogs.toSave = {set};
  window.Click("Command1_0");
  EXPECT_EQ(window.dialogs.questions.size(), 1U);
}

TEST(StartUp, TakesTheTimeZoneOffset) {
  TestWindow window([](Surroundings& around) { around.timeZoneOffset = -360; });
  EXPECT_EQ(window->State().timeZoneOffset, -360);
}

TEST(StartUp, WindowKeepsItsSizeFrom800By600On) {
  for (const flow::ScreenSize screen : {flow::ScreenSize{1024, 768}, flow::ScreenSize{800, 600}}) {
    TestWindow window([&](Surroundings& around) { around.screen = screen; });
    QTest::qWait(50);
    EXPECT_EQ(window->size(), QSize(792, 540));
  }
}

TEST(StartUp, WindowTakesTheWholeOfASmallerScreen) {
  for (const flow::ScreenSize screen : {flow::ScreenSize{799, 768}, flow::ScreenSize{1024, 599}}) {
    TestWindow window([&](Surroundings& around) { around.screen = screen; });
    const QSize whole(static_cast<int>(screen.width), screen.height);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->frameGeometry().size() == whole; }, 2000));
    QTest::qWait(600);
    EXPECT_EQ(window->frameGeometry().size(), whole);
  }
}

}  // namespace
}  // namespace kestrin::window
