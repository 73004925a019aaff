#include "app/flow/exportCommands.h"

#include <algorithm>

#include "tests/app/flow/exportCommandsTest.h"
#include "tests/support/database.h"

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
      flow.Command2_Click();
    } else {
      flow.Command1_Click(1);
    }
  }
  /// What keeps the clicked button lively.
  std::string Clicked() const {
    return std::string(GetParam() ? "Command2" : "Command1_1") + ".Enabled = true";
  }
};

INSTANTIATE_TEST_SUITE_P(OneAndAll, ExportCommand, testing::Bool());

TEST_P(ExportCommand, DoesNothingWhileAnExportRuns) {
  job.idle = false;
  Click();
  EXPECT_THAT(window.Take(), IsEmpty());
  EXPECT_FALSE(job.idle);
}

TEST_P(ExportCommand, CannotBeStartedTwice) {
  window.onEvents = [this] {
    flow.Command1_Click(3);
    flow.Command2_Click();
  };
  onExport = [this](int kind, const std::string& basePath) {
    EXPECT_FALSE(job.idle);
    window.onEvents();
    return exports::ExportOutcome{.made = kind < 0 || basePath.empty()};
  };
  Click();
  const auto calls = window.Take();
  EXPECT_EQ(std::ranges::count(calls, "Frame1.Enabled = true"), 1);
  EXPECT_TRUE(job.idle);
}

TEST_P(ExportCommand, WithoutAJobOnlyReenablesTheControls) {
  job.jobName.clear();
  Click();
  EXPECT_THAT(Between(), ElementsAre(Clicked()));
  EXPECT_TRUE(job.idle);
  EXPECT_THAT(files.made, IsEmpty());
}

TEST_P(ExportCommand, WithoutTheJobsFileSaysThatItIsGoneAndReenablesTheControls) {
  files.names.clear();
  Click();
  EXPECT_THAT(Between(), ElementsAre(Clicked(), "ShowMessage Error opening: " + jobPath +
                                                    ": the file is no longer there"));
  EXPECT_TRUE(job.idle);
}

TEST_P(ExportCommand, MakesTheExportFolderBeforeTheDialog) {
  window.chosen = std::nullopt;
  Click();
  EXPECT_THAT(files.made, ElementsAre(Own("/data"), Own("/data/North_Field"),
                                      Own("/data/North_Field/2006Jun15")));
}

TEST_P(ExportCommand, AsksForTheName) {
  Click();
  EXPECT_EQ(window.request.title, "Save Shape");
  EXPECT_EQ(window.request.filter, "Shape Files (*.shp)|*.shp");
  EXPECT_EQ(window.request.folder, Own("/data/North_Field/2006Jun15"));
  EXPECT_EQ(window.request.fileName,
            GetParam() ? "North_Field_2006Jun15.shp" : "North_Field_2006Jun15_BOOM.shp");
}

TEST_P(ExportCommand, StartsInTheDocumentsWhenTheExportFolderCannotBeMade) {
  files.refused.insert(Own("/data"));
  Click();
  EXPECT_EQ(window.request.folder, Own("/home/user/Documents"));
}

TEST_P(ExportCommand, ACancelledDialogOnlyRestoresTheControls) {
  window.chosen = std::nullopt;
  Click();
  EXPECT_THAT(Between(), ElementsAre(Clicked(), "SaveFile " + window.request.fileName));
  EXPECT_TRUE(job.idle);
}

TEST_P(ExportCommand, AnEmptyNameOnlyRestoresTheControls) {
  window.chosen = "";
  Click();
  EXPECT_THAT(Between(), ElementsAre(Clicked(), "SaveFile " + window.request.fileName));
}

TEST_P(ExportCommand, EveryShpIsTakenOutOfTheChosenName) {
  window.chosen = Own("/out/a.shp.shp");
  Click();
  EXPECT_THAT(window.Take(),
              Contains("export 1 " + Own(GetParam() ? "/out/a_BOOM of " : "/out/a of ") + jobPath));
}

TEST_P(ExportCommand, CopiesTheJobBesideItsSetsOnce) {
  Click();
  Click();
  EXPECT_THAT(files.copied, ElementsAre(jobPath + " to " + Own("/out/North.Field.sqlite")));
}

TEST_P(ExportCommand, CopiesAJobWithALogAsOneFileThatHoldsIt) {
  Select("logged.sqlite");
  test::Database console(job.JobPath());
  console.Execute("PRAGMA journal_mode=WAL").Execute("UPDATE GpsDataTable SET speed = 77");
  double speed = 0;
  files.onCopy = [&](const std::string& from) {
    EXPECT_NE(from, job.JobPath());
    speed = test::Ask(from, "SELECT min(speed) FROM GpsDataTable");
  };
  window.chosen = Own("/out/a.shp");
  Click();
  EXPECT_EQ(speed, 77);
  EXPECT_EQ(files.names.count(Own("/out/logged.sqlite")), 1U);
}

TEST_P(ExportCommand, NeverCopiesOverAFileThatIsThere) {
  files.names.insert(Own("/out/North.Field.sqlite"));
  Click();
  EXPECT_THAT(files.copied, IsEmpty());
}

TEST_P(ExportCommand, CopiesNoJobBesideANameWithoutFolder) {
  window.chosen = "a.shp";
  Click();
  EXPECT_THAT(files.copied, IsEmpty());
}

TEST_P(ExportCommand, CopiesTheJobAlsoWhenNoSetWasMade) {
  onExport = [](int, const std::string&) { return exports::ExportOutcome{}; };
  Click();
  EXPECT_THAT(files.copied, Not(IsEmpty()));
}

TEST_P(ExportCommand, ARunTimeErrorOfAnExportIsSaidOnceAndRestoresTheControls) {
  onExport = [](int, const std::string&) -> exports::ExportOutcome {
    throw exports::SubscriptError("the job has no reference location");
  };
  Click();
  const std::string kind = GetParam() ? "wire" : "boom";
  const auto calls = Between();
  EXPECT_EQ(calls.back(),
            "ShowMessage No " + kind + " set made: the job has no reference location");
  EXPECT_EQ(calls[calls.size() - 2],
            Own(GetParam() ? "export 0 /out/a_WIRE of " : "export 1 /out/a of ") + jobPath);
  EXPECT_THAT(files.copied, IsEmpty());
  EXPECT_TRUE(job.idle);
}

TEST_P(ExportCommand, ACopyThatFailsIsSaidOnceAndRestoresTheControls) {
  files.refused.insert(Own("/out/North.Field.sqlite"));
  Click();
  const auto calls = Between();
  EXPECT_EQ(calls.back(),
            "ShowMessage Error copying: " + Own("/out/North.Field.sqlite") + ": refused");
  EXPECT_EQ(calls[calls.size() - 2], "DoEvents");
  EXPECT_TRUE(job.idle);
}

TEST_P(ExportCommand, ACopyThatAnotherWindowMadeMeanwhileIsAsGood) {
  files.onCopy = [&](const std::string&) {
    files.names.insert(Own("/out/North.Field.sqlite"));
    files.refused.insert(Own("/out/North.Field.sqlite"));
  };
  Click();
  EXPECT_THAT(Between(), Not(testing::Contains(testing::HasSubstr("Error copying"))));
}

TEST_P(ExportCommand, AFolderThatCannotBeLookedIntoIsSaidOnceAndRestoresTheControls) {
  files.unreadable = Own("/out/");
  Click();
  const auto calls = Between();
  EXPECT_THAT(calls.back(), testing::StartsWith("ShowMessage " + Own("/out/a")));
  EXPECT_THAT(calls.back(), testing::EndsWith(": unreadable"));
  EXPECT_TRUE(job.idle);
}

TEST_P(ExportCommand, AJobWithNothingToExportIsSaidBeforeTheLabelSaysError) {
  onExport = [](int, const std::string&) { return exports::ExportOutcome{}; };
  Click();
  ExpectInOrder({"ShowMessage No set made: nothing to export",
                 "Label1_1.Caption = Error Creating File", "Command1_1.BackColor = failure"});
  EXPECT_EQ(window.CallsBeginning("ShowMessage").size(), GetParam() ? 4U : 1U);
}

TEST_P(ExportCommand, AKindThatSaidItselfWhyIsNotSpokenOfAgain) {
  failure = "Error opening: -14";
  Click();
  EXPECT_THAT(window.CallsBeginning("ShowMessage"),
              testing::Each("ShowMessage Error opening: -14"));
}

TEST_P(ExportCommand, CancellingPassesThroughAndTouchesNothingMore) {
  onExport = [](int, const std::string&) -> exports::ExportOutcome { throw base::RunCancelled(); };
  EXPECT_THROW(Click(), base::RunCancelled);
  EXPECT_THAT(window.calls.back(), testing::StartsWith("export "));
  EXPECT_FALSE(job.idle);
  EXPECT_THAT(files.copied, IsEmpty());
}

TEST_P(ExportCommand, CancellingDuringEventsPassesThroughToo) {
  window.onEvents = [] { throw base::RunCancelled(); };
  EXPECT_THROW(Click(), base::RunCancelled);
  EXPECT_EQ(window.calls.back(), "DoEvents");
  EXPECT_FALSE(job.idle);
}

TEST_P(ExportCommand, AFileErrorIsSaidBeforeTheLabelSaysError) {
  onExport = [](int, const std::string& basePath) -> exports::ExportOutcome {
    throw base::FileError(basePath + ".shp", "No space left on device");
  };
  Click();
  const std::string base = Own(GetParam() ? "/out/a_BOOM" : "/out/a");
  const auto calls = window.Take();
  const auto said = std::ranges::find(
      calls, "ShowMessage Error writing: " + base + ".shp: No space left on device");
  ASSERT_LT(said + 2, calls.end());
  EXPECT_EQ(said[1], "Label1_1.Caption = Error Creating File");
  EXPECT_EQ(said[2], "Command1_1.BackColor = failure");
  EXPECT_FALSE(job.shapeExists[1]);
  EXPECT_THAT(files.copied, Not(IsEmpty()));
}

TEST_P(ExportCommand, AnOldSetThatCouldNotBeReplacedIsNotCalledCreated) {
  files.AddSet(Own("/out/a_BOOM"));
  files.AddSet(Own("/out/a"));
  onExport = [](int, const std::string& basePath) -> exports::ExportOutcome {
    throw base::FileError(basePath + ".shp", "Permission denied");
  };
  Click();
  EXPECT_THAT(window.Take(), Contains("Label1_1.Caption = Error Creating File"));
  EXPECT_TRUE(job.shapeExists[1]);
}

TEST_P(ExportCommand, AJobNotReadToItsEndIsWarnedOfWithHowManyOfItsEpochsTheSetHolds) {
  state.progress.total = 5000;
  onExport = [this](int kind, const std::string& basePath) {
    files.AddSet(basePath);
    return exports::ExportOutcome{.made = true, .epochs = 1234, .lastStep = kind == 1 ? 11 : 101};
  };
  Click();
  const std::size_t warnings = window.CallsBeginning("ShowWarning").size();
  const auto calls = window.Take();
  const auto warned =
      std::ranges::find(calls,
                        "ShowWarning [Kestrin Warning] The job could not be read to its end: "
                        "the set holds 1234 of 5000 epochs, code 11");
  ASSERT_LT(warned + 1, calls.end());
  EXPECT_EQ(warned[1], "Label1_1.Caption = Shape File Created");
  EXPECT_EQ(warnings, 1U);
}

}  // namespace
}  // namespace kestrin::flow
