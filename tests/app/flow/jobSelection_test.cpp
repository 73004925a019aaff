#include "app/flow/jobSelection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/app/flow/flowTest.h"
#include "tests/support/database.h"
#include "tests/support/tempFolder.h"

namespace kestrin::flow {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

struct Selection : test::FlowTest {
  std::string Folder() const { return Own(folder.Path().string() + "/"); }

  void SelectVersion(const std::string& version) {
    test::JobBuilder job(folder / "job.sqlite");
    Choose(FillJob(job, version));
    flow.Command3_Click();
  }
  std::vector<std::string> Warnings() const { return window.CallsBeginning("ShowWarning"); }
};

TEST_F(Selection, StartsInTheProgramsFolder) {
  flow.Command3_Click();
  EXPECT_EQ(window.request.folder, Own("/opt/kestrin/"));
  EXPECT_EQ(state.job.jobFolder, Own("/opt/kestrin/"));
}

TEST_F(Selection, StartsOnARemovableDriveWithAJob) {
  window.drives = {{Own("/media/stick"), true, true}};
  window.filesIn = {{Own("/media/stick/"), {"a.sqlite"}}};
  flow.Command3_Click();
  EXPECT_EQ(window.request.folder, Own("/media/stick/"));
}

TEST_F(Selection, StartsWhereTheLastJobWasFound) {
  Select("a.sqlite");
  window.drives = {{Own("/media/stick"), true, true}};
  window.filesIn = {{Own("/media/stick/"), {"a.sqlite"}}};
  flow.Command3_Click();
  EXPECT_EQ(window.request.folder, Folder());
  EXPECT_THAT(window.CallsBeginning("FilesIn"), testing::IsEmpty());
}

TEST_F(Selection, AsksForAJobFile) {
  flow.Command3_Click();
  EXPECT_EQ(window.request.title, "Select Job");
  EXPECT_EQ(window.request.filter, "Job Files (*.sqlite)|*.sqlite");
  EXPECT_EQ(window.request.fileName, "");
}

TEST_F(Selection, DisablesTheControlsAndTurnsYellowBeforeTheDialog) {
  flow.Command3_Click();
  const auto calls = window.Take();
  const auto dialog = std::ranges::find(calls, "OpenFile");
  ASSERT_GE(dialog - calls.begin(), 4);
  EXPECT_THAT(std::vector(dialog - 4, dialog),
              ElementsAre("Picture1.Enabled = false", "DoEvents", "Command3.BackColor = working",
                          "DoEvents"));
}

TEST_F(Selection, ACancelledFirstDialogLeavesOnlySelectEnabled) {
  flow.Command3_Click();
  const auto calls = window.Take();
  const auto dialog = std::ranges::find(calls, "OpenFile");
  EXPECT_THAT(
      std::vector(dialog, calls.end()),
      ElementsAre("OpenFile", "Command3.Enabled = true", "Frame1.Enabled = true",
                  "Label7.Visible = false", "Shape1.Visible = false", "Label8.Visible = false",
                  "TimerPreview.Enabled = false", "Shape1.Width = 0", "DoEvents",  //
                  "Option1_0.Enabled = false", "Option1_1.Enabled = false",
                  "Option1_2.Enabled = false", "Option1_3.Enabled = false",
                  "Label5.Caption = ", "Command3.BackColor = face"));
}

TEST_F(Selection, ACancelledDialogLeavesTheJobOfBeforeUsable) {
  const std::string path = Select("a.sqlite");
  window.chosen = std::nullopt;
  flow.Command3_Click();
  EXPECT_EQ(state.preview.jobPath, path);
  EXPECT_EQ(state.job.jobName, "a");
  EXPECT_EQ(window.captions.at("Label5"), "a");
  EXPECT_TRUE(window.enabled.at("Frame2"));
  EXPECT_TRUE(window.enabled.at("Option1_3"));
  EXPECT_EQ(window.backColors.at("Command3"), Background::kButtonFace);
}

TEST_F(Selection, AFileThatIsNotThereIsLikeACancelledDialog) {
  for (const std::string& chosen : {folder / "missing.sqlite", std::string()}) {
    window.chosen = chosen;
    flow.Command3_Click();
    EXPECT_EQ(state.job.jobName, "");
    EXPECT_FALSE(window.enabled.at("Option1_0"));
  }
}

TEST_F(Selection, TakesTheNamesFromThePath) {
  const std::string path = Select("North.Field.sqlite");
  EXPECT_EQ(state.job.jobName, "North.Field");
  EXPECT_EQ(state.job.fileSafeName, "North_Field");
  EXPECT_EQ(state.job.jobFolder, Folder());
  EXPECT_EQ(state.job.JobPath(), path);
  EXPECT_EQ(window.captions.at("Label5"), "North.Field");
}

TEST_F(Selection, NamesTheExportFolderByTheNewestEpoch) {
  Select("North.Field.sqlite");
  EXPECT_EQ(state.job.dateText, "1999Aug22");
  EXPECT_EQ(state.job.exportFolder, Own("/opt/kestrin/TrevaskData/North_Field/1999Aug22"));
  EXPECT_EQ(state.lastGpsTime, geo::LocalTimeOf({0, 2000}, 0));
}

TEST_F(Selection, TheZoneMovesTheLastTime) {
  state.timeZoneOffset = -300;
  Select("a.sqlite");
  EXPECT_EQ(state.lastGpsTime, geo::LocalTimeOf({0, 2000}, -300));
  EXPECT_EQ(state.job.dateText, "1999Aug21");
}

TEST_F(Selection, AJobOfItsOwnFormatIsNotWarnedOf) {
  SelectVersion(" 3.2.8-1 ");
  EXPECT_THAT(Warnings(), testing::IsEmpty());
}

TEST_F(Selection, AnOlderJobIsNotWarnedOf) {
  SelectVersion("4.0-1");
  EXPECT_THAT(Warnings(), testing::IsEmpty());
}

TEST_F(Selection, ANewerJobIsWarnedOfAndShownAllTheSame) {
  SelectVersion("3.2.8-2");
  EXPECT_THAT(Warnings(),
              ElementsAre("ShowWarning [Kestrin Warning] Kestrin Version  1.2.3 may be "
                          "incompatible with Job File Format 3.2.8-2\r\nand might not display "
                          "properly.\r\n\r\nVisit www.kestrin.example to download the latest "
                          "version of Kestrin."));
  EXPECT_NE(state.preview.jobPath, "");
}

TEST_F(Selection, LetsTheConsoleWriteWhileAWarningStands) {
  int result = SQLITE_ERROR;
  window.onWarning = [&] {
    result = test::Database(window.chosen.value_or("")).Result("UPDATE GpsDataTable SET speed = 2");
  };
  SelectVersion("3.2.8-2");
  EXPECT_EQ(result, SQLITE_OK);
}

TEST_F(Selection, AnUnknownFormatIsWarnedOfAndShownAllTheSame) {
  SelectVersion("3.2.8-1-2");
  EXPECT_THAT(Warnings(), ElementsAre("ShowWarning [Kestrin Warning] Job file Format 3.2.8-1-2 "
                                      "may be incompatible \r\nwith Kestrin and might not "
                                      "display properly."));
  EXPECT_NE(state.preview.jobPath, "");
}

TEST_F(Selection, AJobWithoutVersionTableIsOfUnknownFormat) {
  test::JobBuilder job(folder / "a.sqlite");
  FillJob(job).Execute("DROP TABLE VersionChangeTable");
  Choose(job);
  flow.Command3_Click();
  EXPECT_THAT(Warnings(),
              ElementsAre(StartsWith("ShowWarning [Kestrin Warning] Job file Format  may be")));
}

TEST_F(Selection, AJobWithAnEmptyVersionTableOrTextIsOfUnknownFormat) {
  for (const char* change :
       {"DELETE FROM VersionChangeTable", "UPDATE VersionChangeTable SET sqlite_ver = ''",
        "UPDATE VersionChangeTable SET sqlite_ver = '   '"}) {
    test::JobBuilder job(folder / (std::to_string(window.yields) + ".sqlite"));
    FillJob(job).Execute(change);
    Choose(job);
    flow.Command3_Click();
    EXPECT_THAT(Warnings(),
                ElementsAre(StartsWith("ShowWarning [Kestrin Warning] Job file Format  may be")))
        << change;
    window.Take();
  }
}

TEST_F(Selection, TheNewestVersionCounts) {
  test::JobBuilder job(folder / "a.sqlite");
  Choose(FillJob(job, "9.9.9-9").Version({0, 5}, "3.2.8-1"));
  flow.Command3_Click();
  EXPECT_THAT(Warnings(), testing::IsEmpty());
}

TEST_F(Selection, AVersionThatIsNoNumberAbandonsTheSelection) {
  SelectVersion("3.2.8-beta");
  EXPECT_THAT(Warnings(), testing::IsEmpty());
  EXPECT_EQ(state.job.jobName, "job");  // what was done stays done
  EXPECT_EQ(state.job.dateText, "");
  EXPECT_EQ(state.preview.jobPath, "");
  EXPECT_EQ(window.captions.at("Label5"), "");
  EXPECT_FALSE(window.enabled.at("Frame2"));
  EXPECT_EQ(window.backColors.at("Command3"), Background::kButtonFace);
}

TEST_F(Selection, AWeekBeyondTheCalendarAbandonsTheSelection) {
  test::JobBuilder job(folder / "a.sqlite");
  Choose(FillJob(job).Epoch({2000000000, 0}, 1, 1));
  flow.Command3_Click();
  EXPECT_EQ(state.preview.jobPath, "");
  EXPECT_EQ(window.CallsBeginning("Show").size(), 0U);
}

/// What a file can hold that opens and is no job.
std::vector<std::string> NoJobs(const std::string& job) {
  const std::string whole = test::FileBytes(job);
  return {"", std::string(5000, 'x'), "notes", whole.substr(0, whole.size() / 2)};
}

TEST_F(Selection, AFileThatIsNoDatabaseIsOfUnknownFormatAndTakesTheJobOfBeforeAway) {
  const std::string before = Select("a.sqlite");
  for (const std::string& bytes : NoJobs(before)) {
    window.chosen = before;
    flow.Command3_Click();
    ASSERT_EQ(state.preview.jobPath, before);
    window.Take();
    picture.Take();
    const std::string path = folder / "b.sqlite";
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
    files.names.insert(path);
    window.chosen = path;
    flow.Command3_Click();
    EXPECT_THAT(Warnings(), ElementsAre("ShowWarning [Kestrin Warning] Job file Format  may be "
                                        "incompatible \r\nwith Kestrin and might not display "
                                        "properly."));
    EXPECT_EQ(state.preview.jobPath, "");
    EXPECT_EQ(state.job.exportFolder, Own("/opt/kestrin/TrevaskData/b/"));
    EXPECT_EQ(window.captions.at("Label5"), "");
    EXPECT_THAT(picture.Take(), ElementsAre("Clear"));
    for (const char* name : {"Frame2", "Frame4", "Command2", "Command4", "Option1_0"}) {
      EXPECT_FALSE(window.enabled.at(name)) << name;
    }
    for (const char* name : {"Frame1", "Command3"}) EXPECT_TRUE(window.enabled.at(name)) << name;
  }
}

TEST_F(Selection, AFileThatCannotBeOpenedIsNotShownAndNotSpokenOf) {
  const std::string path = folder / "a.sqlite";
  files.names.insert(path);  // seen by the dialog, gone at the opening
  window.chosen = path;
  flow.Command3_Click();
  EXPECT_EQ(window.CallsBeginning("Show").size(), 0U);
  EXPECT_EQ(state.preview.jobPath, "");
  EXPECT_EQ(state.job.exportFolder, Own("/opt/kestrin/TrevaskData/a/"));
  EXPECT_THAT(window.calls, Contains("Label1_0.Caption = "));
  EXPECT_EQ(window.captions.at("Label5"), "");
}

TEST_F(Selection, AFailedOpenLeavesTheJobOfBeforeLoaded) {
  const std::string before = Select("a.sqlite");
  files.names.insert(folder / "b.sqlite");
  window.chosen = folder / "b.sqlite";
  flow.Command3_Click();
  EXPECT_EQ(state.preview.jobPath, before);
  EXPECT_EQ(state.job.jobName, "b");
  EXPECT_EQ(window.captions.at("Label5"), "b");
  EXPECT_TRUE(window.enabled.at("Command2"));
}

TEST_F(Selection, AJobWithoutGpsTableHasNoDate) {
  test::JobBuilder job(folder / "a.sqlite");
  FillJob(job).Execute("DROP TABLE GpsDataTable");
  Choose(job);
  flow.Command3_Click();
  EXPECT_EQ(state.job.dateText, "");
  EXPECT_EQ(state.progress.total, 0);
  EXPECT_EQ(state.lastGpsTime, kZeroDate);
}

TEST_F(Selection, DrawsThePreviewBeforeItTellsWhichSetsExist) {
  test::JobBuilder job(folder / "a.sqlite");
  Choose(FillJob(job));
  window.onYield = [this] {
    EXPECT_EQ(state.job.dateText, "1999Aug22");
    EXPECT_EQ(window.captions.at("Label5"), "a");
    EXPECT_EQ(state.job.exportFolder, "");
    EXPECT_THAT(window.CallsBeginning("Label1_"), testing::IsEmpty());
  };
  flow.Command3_Click();
  EXPECT_EQ(window.yields, 4);
  EXPECT_THAT(window.CallsBeginning("Label1_"), testing::SizeIs(4));
}

TEST_F(Selection, TellsWhichSetsExist) {
  files.AddSet(Own("/opt/kestrin/TrevaskData/a/1999Aug22/a_1999Aug22_BOOM"));
  files.AddSet(Own("/opt/kestrin/TrevaskData/a/1999Aug22/a_1999Aug22_POINT"));
  files.names.erase(Own("/opt/kestrin/TrevaskData/a/1999Aug22/a_1999Aug22_POINT.dbf"));
  Select("a.sqlite");
  EXPECT_THAT(state.job.shapeExists, ElementsAre(false, true, false, false));
  EXPECT_EQ(window.captions.at("Label1_0"), "");
  EXPECT_EQ(window.captions.at("Label1_1"), "Shape File Exists");
  EXPECT_EQ(window.captions.at("Label1_3"), "");
  for (const char* name : {"Command1_0", "Command1_1", "Command1_2", "Command1_3"}) {
    EXPECT_EQ(window.backColors.at(name), Background::kButtonFace);
  }
}

TEST_F(Selection, TestsShpThenShxThenDbfAndStopsAtTheFirstMissing) {
  const std::string base = Own("/opt/kestrin/TrevaskData/a/1999Aug22/a_1999Aug22");
  files.names.insert(base + "_WIRE.shp");
  Select("a.sqlite");
  ASSERT_GE(files.asked.size(), 6U);
  EXPECT_THAT(std::vector(files.asked.end() - 5, files.asked.end()),
              ElementsAre(base + "_WIRE.shp", base + "_WIRE.shx", base + "_BOOM.shp",
                          base + "_POLY.shp", base + "_POINT.shp"));
}

TEST_F(Selection, CancellingPassesThroughAndTouchesNothingMore) {
  test::JobBuilder job(folder / "a.sqlite");
  Choose(FillJob(job));
  window.onYield = [this] {
    window.Take();
    throw base::RunCancelled();
  };
  EXPECT_THROW(flow.Command3_Click(), base::RunCancelled);
  EXPECT_THAT(window.Take(), testing::IsEmpty());
  EXPECT_EQ(state.preview.jobPath, "");
}

}  // namespace
}  // namespace kestrin::flow
