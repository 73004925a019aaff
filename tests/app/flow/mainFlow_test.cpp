#include "app/flow/mainFlow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/flow/flowTest.h"
#include "tests/support/tempFolder.h"

namespace kestrin::flow {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

struct StartUp : test::FlowTest {};
struct Exporting : test::FlowTest {};
struct Printing : test::FlowTest {};

TEST_F(StartUp, SetsLabelsFoldersAndFlags) {
  flow.Form_Load(Own("/opt/kestrin"), -300, [] {});
  EXPECT_THAT(window.Take(),
              ElementsAre("Label4.Caption = Kestrin Version  1.2.3", "Label1_0.Caption = ",
                          "Label1_1.Caption = ", "Label1_2.Caption = ", "Label1_3.Caption = "));
  EXPECT_EQ(state.applicationFolder, Own("/opt/kestrin/"));
  EXPECT_EQ(state.dataFolder, Own("/opt/kestrin/TrevaskData/"));
  EXPECT_EQ(state.timeZoneOffset, -300);
  EXPECT_TRUE(state.job.idle);
  EXPECT_EQ(state.preview.jobPath, "");
}

TEST_F(StartUp, HooksTheWindowOnceItSaysItsVersionAndBeforeItLooksForFolders) {
  window.Take();
  files.made.clear();
  int hooked = 0;
  flow.Form_Load(Own("/opt/other"), 0, [&] {
    ++hooked;
    EXPECT_THAT(window.Take(), ElementsAre("Label4.Caption = Kestrin Version  1.2.3"));
    EXPECT_THAT(files.made, IsEmpty());
    EXPECT_EQ(state.applicationFolder, Own("/opt/kestrin/"));
  });
  EXPECT_EQ(hooked, 1);
  EXPECT_THAT(files.made, ElementsAre(Own("/opt/other/TrevaskData")));
}

TEST_F(StartUp, MakesTheDataFolderOnly) {
  EXPECT_THAT(files.made, ElementsAre(Own("/opt/kestrin/TrevaskData")));
}

TEST_F(StartUp, TwiceIsNoFailure) {
  flow.Form_Load(Own("/opt/kestrin/"), 0, [] {});
  EXPECT_EQ(state.applicationFolder, Own("/opt/kestrin/"));
}

TEST_F(StartUp, GoesOnWhenTheDataFolderCanBeMadeNowhere) {
  files.refused.insert({Own("/usr/lib/kestrin/TrevaskData"), Own("/home/user/Documents")});
  files.refused.insert(Own("/home/user/Documents/TrevaskData"));
  EXPECT_NO_THROW(flow.Form_Load(Own("/usr/lib/kestrin"), 0, [] {}));
  EXPECT_EQ(state.dataFolder, Own("/usr/lib/kestrin/TrevaskData/"));
  EXPECT_THAT(window.CallsBeginning("Label1"), testing::SizeIs(4));
}

TEST_F(StartUp, TheZeroDateIs30December1899) {
  const auto date = std::chrono::floor<std::chrono::days>(state.lastGpsTime);
  EXPECT_EQ(std::chrono::year_month_day(date), std::chrono::year(1899) / 12 / 30);
}

TEST_F(Exporting, AKindGoesFromItsButtonToItsProcedure) {
  Select("a.sqlite");
  window.chosen = Own("/out/b.shp");
  bool seen = false;
  window.onYield = [&] {
    seen = true;
    EXPECT_TRUE(window.visible.at("Shape2"));
    EXPECT_EQ(window.captions.at("Label10"), "Creating Boom Shape");
    EXPECT_TRUE(window.enabled.at("TimerShape"));
    EXPECT_TRUE(window.enabled.at("Command1_1"));
    EXPECT_FALSE(window.enabled.at("Command1_0"));
    EXPECT_FALSE(window.enabled.at("Frame2"));
    EXPECT_TRUE(window.enabled.at("Picture1"));
    EXPECT_EQ(state.progress.count, 1);
  };
  flow.Command1_Click(1);
  EXPECT_TRUE(seen);
  EXPECT_EQ(window.captions.at("Label1_1"), "Shape File Created");
  EXPECT_EQ(window.backColors.at("Command1_1"), Background::kSuccess);
  EXPECT_TRUE(window.enabled.at("Frame2"));
  EXPECT_FALSE(window.visible.at("Shape2"));
  EXPECT_EQ(files.names.count(Own("/out/b.shp")), 1U);
}

TEST_F(Exporting, NothingStartsASecondExport) {
  Select("a.sqlite");
  window.chosen = Own("/out/b.shp");
  int dialogs = 0;
  window.onYield = [&] {
    flow.Command1_Click(0);
    flow.Command2_Click();
    ++dialogs;
  };
  flow.Command2_Click();
  EXPECT_EQ(window.CallsBeginning("SaveFile").size(), 1U);
  EXPECT_EQ(dialogs, 4);
}

TEST_F(Exporting, CreateAllTurnsGreenAndBackByItsTimer) {
  Select("a.sqlite");
  window.chosen = Own("/out/b.shp");
  flow.Command2_Click();
  EXPECT_EQ(window.backColors.at("Command2"), Background::kSuccess);
  EXPECT_TRUE(window.enabled.at("Timer2"));
  window.Take();
  flow.Timer2_Timer();
  EXPECT_THAT(window.Take(), ElementsAre("Timer2.Enabled = false", "Command2.BackColor = face"));
}

TEST_F(Exporting, CancellingLeavesTheIdleFlagFalse) {
  Select("a.sqlite");
  window.chosen = Own("/out/b.shp");
  window.onYield = [] { throw base::RunCancelled(); };
  EXPECT_THROW(flow.Command2_Click(), base::RunCancelled);
  EXPECT_FALSE(state.job.idle);
  EXPECT_FALSE(window.enabled.at("Frame2"));
}

TEST_F(Printing, FillsPrintsAndDiscardsTheSheet) {
  Select("North.Field.sqlite");
  flow.Command4_Click();
  EXPECT_THAT(window.Take(),
              ElementsAre("Load", "ClearPicture", "CopyPreviewPicture", "SetJobName North.Field",
                          "SetLastModified 8/22/1999", "Print", "Unload"));
  EXPECT_THAT(picture.Take(), ElementsAre("Refresh"));
}

TEST_F(Printing, RepaintsThePreviewOnceTheSheetIsFilledAndBeforeItPrints) {
  std::vector<std::string> repaintedBy;
  window.onSheet = [&](const std::string& call) {
    if (!picture.calls.empty()) repaintedBy.push_back(call);
  };
  flow.Command4_Click();
  EXPECT_THAT(repaintedBy, ElementsAre("Print", "Unload"));
}

TEST_F(Printing, ShowsTheDateOfTheNewestRowNotThatOfTheFile) {
  test::JobBuilder job(folder / "a.sqlite");
  Choose(FillJob(job).Epoch({350, 86399999}, 1, 1));
  flow.Command3_Click();
  window.Take();
  flow.Command4_Click();
  EXPECT_THAT(window.Take(), Contains("SetLastModified 5/7/2006"));
}

TEST_F(Printing, WithoutAJobPrintsTheZeroDate) {
  flow.Command4_Click();
  EXPECT_THAT(window.Take(),
              ElementsAre("Load", "ClearPicture", "CopyPreviewPicture", "SetJobName ",
                          "SetLastModified 12/30/1899", "Print", "Unload"));
}

TEST_F(Printing, EveryStepThatFailsIsSkippedInSilence) {
  window.sheetFails = true;
  EXPECT_NO_THROW(flow.Command4_Click());
  EXPECT_THAT(window.Take(),
              ElementsAre("Load", "ClearPicture", "CopyPreviewPicture", "SetJobName ",
                          "SetLastModified 12/30/1899", "Print", "Unload"));
  EXPECT_THAT(picture.Take(), ElementsAre("Refresh"));
}

}  // namespace
}  // namespace kestrin::flow
