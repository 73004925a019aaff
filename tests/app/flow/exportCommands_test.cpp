#include "app/flow/exportCommands.h"

#include <algorithm>

#include "tests/app/flow/exportCommandsTest.h"

namespace kestrin::flow {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// What the two commands have in common.
struct ExportCommand : test::CommandsTest, testing::WithParamInterface<bool> {
  void Click() {
    if (GetParam()) {
      commands.Command2_Click();
    } else {
      commands.Command1_Click(1);
    }
  }
  std::string Clicked() const { return GetParam() ? "Command2" : "Command1(1)"; }
};

INSTANTIATE_TEST_SUITE_P(OneAndAll, ExportCommand, testing::Bool());

TEST_P(ExportCommand, DoesNothingWhileAnExportRuns) {
  state.idle = false;
  Click();
  EXPECT_THAT(screen.Take(), IsEmpty());
  EXPECT_FALSE(state.idle);
}

TEST_P(ExportCommand, CannotBeStartedTwice) {
  screen.onEvents = [this] {
    commands.Command1_Click(3);
    commands.Command2_Click();
  };
  onExport = [this](int kind, const std::string& basePath) {
    EXPECT_FALSE(state.idle);
    screen.onEvents();
    return exports::ExportOutcome{.made = kind < 0 || basePath.empty()};
  };
  Click();
  const auto calls = screen.Take();
  EXPECT_EQ(std::ranges::count(calls, "SetControlsEnabled true"), 1);
  EXPECT_TRUE(state.idle);
}

TEST_P(ExportCommand, WithoutAJobOnlyReenablesTheControls) {
  state.jobName.clear();
  Click();
  EXPECT_THAT(screen.Take(), ElementsAre("SetControlsEnabled false,true", Clicked() + " enabled",
                                         "SetControlsEnabled true"));
  EXPECT_TRUE(state.idle);
  EXPECT_THAT(files.made, IsEmpty());
}

TEST_P(ExportCommand, WithoutTheJobsFileOnlyReenablesTheControls) {
  files.names.clear();
  Click();
  EXPECT_THAT(screen.Take(), ElementsAre("SetControlsEnabled false,true", Clicked() + " enabled",
                                         "SetControlsEnabled true"));
  EXPECT_TRUE(state.idle);
}

TEST_P(ExportCommand, MakesTheExportFolderBeforeTheDialog) {
  screen.chosen = std::nullopt;
  Click();
  EXPECT_THAT(files.made, ElementsAre("/data", "/data/North_Field", "/data/North_Field/2006Jun15"));
}

TEST_P(ExportCommand, AsksForTheName) {
  Click();
  EXPECT_EQ(screen.request.title, "Save Shape");
  EXPECT_EQ(screen.request.filter, "Shape Files (*.shp)|*.shp");
  EXPECT_EQ(screen.request.folder, "/data/North_Field/2006Jun15");
  EXPECT_EQ(screen.request.fileName,
            GetParam() ? "North_Field_2006Jun15.shp" : "North_Field_2006Jun15_BOOM.shp");
}

TEST_P(ExportCommand, StartsInTheDocumentsWhenTheExportFolderCannotBeMade) {
  files.refused.insert("/data");
  Click();
  EXPECT_EQ(screen.request.folder, "/home/user/Documents");
}

TEST_P(ExportCommand, ACancelledDialogOnlyRestoresTheControls) {
  screen.chosen = std::nullopt;
  Click();
  EXPECT_THAT(Between(),
              ElementsAre(Clicked() + " enabled", "AskSaveName " + screen.request.fileName));
  EXPECT_TRUE(state.idle);
}

TEST_P(ExportCommand, AnEmptyNameOnlyRestoresTheControls) {
  screen.chosen = "";
  Click();
  EXPECT_THAT(Between(),
              ElementsAre(Clicked() + " enabled", "AskSaveName " + screen.request.fileName));
}

TEST_P(ExportCommand, EveryShpIsTakenOutOfTheChosenName) {
  screen.chosen = "/out/a.shp.shp";
  Click();
  EXPECT_THAT(screen.Take(),
              Contains(GetParam() ? "export 1 /out/a_BOOM of /jobs/North.Field.sqlite"
                                  : "export 1 /out/a of /jobs/North.Field.sqlite"));
}

TEST_P(ExportCommand, CopiesTheJobBesideItsSetsOnce) {
  Click();
  Click();
  EXPECT_THAT(files.copied, ElementsAre("/jobs/North.Field.sqlite to /out/North.Field.sqlite"));
}

TEST_P(ExportCommand, NeverCopiesOverAFileThatIsThere) {
  files.names.insert("/out/North.Field.sqlite");
  Click();
  EXPECT_THAT(files.copied, IsEmpty());
}

TEST_P(ExportCommand, CopiesNoJobBesideANameWithoutFolder) {
  screen.chosen = "a.shp";
  Click();
  EXPECT_THAT(files.copied, IsEmpty());
}

TEST_P(ExportCommand, CopiesTheJobAlsoWhenNoSetWasMade) {
  onExport = [](int, const std::string&) { return exports::ExportOutcome{}; };
  Click();
  EXPECT_THAT(files.copied, Not(IsEmpty()));
}

TEST_P(ExportCommand, ARunTimeErrorOfAnExportOnlyRestoresTheControls) {
  onExport = [](int, const std::string&) -> exports::ExportOutcome {
    throw exports::SubscriptError();
  };
  Click();
  const auto calls = Between();
  EXPECT_EQ(calls.back(), std::string(GetParam() ? "export 0 /out/a_WIRE" : "export 1 /out/a") +
                              " of /jobs/North.Field.sqlite");
  EXPECT_THAT(files.copied, IsEmpty());
  EXPECT_TRUE(state.idle);
}

TEST_P(ExportCommand, ACopyThatFailsOnlyRestoresTheControls) {
  files.refused.insert("/out/North.Field.sqlite");
  Click();
  EXPECT_EQ(Between().back(), "DoEvents");
  EXPECT_TRUE(state.idle);
}

TEST_P(ExportCommand, CancellingPassesThroughAndTouchesNothingMore) {
  onExport = [](int, const std::string&) -> exports::ExportOutcome { throw base::RunCancelled(); };
  EXPECT_THROW(Click(), base::RunCancelled);
  EXPECT_THAT(screen.calls.back(), testing::StartsWith("export "));
  EXPECT_FALSE(state.idle);
  EXPECT_THAT(files.copied, IsEmpty());
}

TEST_P(ExportCommand, CancellingDuringEventsPassesThroughToo) {
  screen.onEvents = [] { throw base::RunCancelled(); };
  EXPECT_THROW(Click(), base::RunCancelled);
  EXPECT_EQ(screen.calls.back(), "DoEvents");
  EXPECT_FALSE(state.idle);
}

TEST_P(ExportCommand, AFileErrorIsSaidBeforeTheLabelSaysError) {
  onExport = [](int, const std::string& basePath) -> exports::ExportOutcome {
    throw base::FileError(basePath + ".shp", "No space left on device");
  };
  Click();
  const std::string base = GetParam() ? "/out/a_BOOM" : "/out/a";
  const auto calls = screen.Take();
  const auto said = std::ranges::find(
      calls, "ShowMessage Error writing: " + base + ".shp: No space left on device");
  ASSERT_LT(said + 2, calls.end());
  EXPECT_EQ(said[1], "Label1(1) 'Error Creating File'");
  EXPECT_EQ(said[2], "Command1(1) red");
  EXPECT_FALSE(state.shapeExists[1]);
  EXPECT_THAT(files.copied, Not(IsEmpty()));
}

TEST_P(ExportCommand, AnOldSetThatCouldNotBeReplacedIsNotCalledCreated) {
  files.AddSet("/out/a_BOOM");
  files.AddSet("/out/a");
  onExport = [](int, const std::string& basePath) -> exports::ExportOutcome {
    throw base::FileError(basePath + ".shp", "Permission denied");
  };
  Click();
  EXPECT_THAT(screen.Take(), Contains("Label1(1) 'Error Creating File'"));
  EXPECT_TRUE(state.shapeExists[1]);
}

TEST_P(ExportCommand, AJobNotReadToItsEndIsWarnedOf) {
  onExport = [this](int kind, const std::string& basePath) {
    files.AddSet(basePath);
    return exports::ExportOutcome{.made = true, .epochs = 1234, .lastStep = kind == 1 ? 11 : 101};
  };
  Click();
  const auto calls = screen.Take();
  const auto warned = std::ranges::find(
      calls,
      "ShowWarning The job could not be read to its end.\r\nEpochs written: 1234\r\n"
      "Error code: 11");
  ASSERT_LT(warned + 1, calls.end());
  EXPECT_EQ(warned[1], "Label1(1) 'Shape File Created'");
  EXPECT_EQ(std::ranges::count_if(
                calls, [](const std::string& call) { return call.starts_with("ShowWarning"); }),
            1);
}

}  // namespace
}  // namespace kestrin::flow
