#include <algorithm>

#include "tests/app/flow/exportCommandsTest.h"

namespace kestrin::flow {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

constexpr const char* kQuestion =
    "AskYesNo Shape File already exists.  Do you want to overwrite it?";

/// The button of one kind, and the order of what the user sees of it.
struct OneKind : test::CommandsTest {};

/// "CREATE ALL", likewise.
struct AllKinds : test::CommandsTest {};

TEST_F(OneKind, IsAskedForShownExportedReportedAndCopiedInThisOrder) {
  flow.Command1_Click(2);
  ExpectInOrder({"Frame2.Enabled = false", "Command1_2.Enabled = false",
                 "Command1_2.Enabled = true", "SaveFile North_Field_2006Jun15_POLY.shp",
                 "Command1_2.BackColor = working", "DoEvents",
                 "Label1_2.Caption = Creating Shape File", "Label10.Caption = Creating Poly Shape",
                 "DoEvents", "export 2 " + Own("/out/a of ") + jobPath,
                 "Label1_2.Caption = Shape File Created", "Command1_2.BackColor = success",
                 "DoEvents", "copy " + Own("/out/North.Field.sqlite"), "Frame2.Enabled = true"});
  EXPECT_TRUE(job.shapeExists[2]);
  EXPECT_TRUE(job.idle);
}

TEST_F(OneKind, TakesBackTheColoursOfBeforeOnceANameIsChosen) {
  for (const char* button : {"Command1_0", "Command1_1", "Command1_2", "Command1_3", "Command2"}) {
    window.Take();
    flow.Command1_Click(2);
    ExpectInOrder({"SaveFile North_Field_2006Jun15_POLY.shp",
                   std::string(button) + ".BackColor = face", "Command1_2.BackColor = working"});
  }
  ExpectInOrder({"SaveFile North_Field_2006Jun15_POLY.shp", "Timer2.Enabled = false",
                 "Command1_2.BackColor = working"});
  EXPECT_FALSE(window.enabled.at("Timer2"));
}

TEST_F(OneKind, ASetThatWasNotMadeTurnsItsButtonRed) {
  onExport = [](int, const std::string&) { return exports::ExportOutcome{}; };
  job.shapeExists[0] = true;
  flow.Command1_Click(0);
  ExpectInOrder({"export 0 " + Own("/out/a of ") + jobPath,
                 "Label1_0.Caption = Error Creating File", "Command1_0.BackColor = failure",
                 "DoEvents", "Frame1.Enabled = true"});
  EXPECT_EQ(window.backColors.at("Command1_0"), Background::kFailure);
  EXPECT_FALSE(job.shapeExists[0]);
}

TEST_F(OneKind, ASetThatLacksOneOfItsThreeFilesWasNotMade) {
  for (const char* missing : {".shp", ".shx", ".dbf"}) {
    onExport = [this, missing](int, const std::string& basePath) {
      files.AddSet(basePath);
      files.names.erase(basePath + missing);
      return exports::ExportOutcome{};
    };
    job.shapeExists[0] = true;
    flow.Command1_Click(0);
    EXPECT_FALSE(job.shapeExists[0]) << missing;
  }
}

TEST_F(OneKind, AsksBeforeOverwriting) {
  job.shapeExists[1] = true;
  flow.Command1_Click(1);
  ExpectInOrder({"Command1_1.BackColor = working", kQuestion,
                 "Label1_1.Caption = Creating Shape File",
                 "export 1 " + Own("/out/a of ") + jobPath});
}

TEST_F(OneKind, AnsweringNoLeavesFilesAndLabelsAsTheyAre) {
  files.AddSet(Own("/out/a"));
  const auto before = files.names;
  job.exportFolder = Own("/out");
  job.shapeExists[1] = true;
  window.yes = false;
  flow.Command1_Click(1);
  const auto calls = Between();
  const auto asked = std::ranges::find(calls, kQuestion);
  ASSERT_NE(asked, calls.end());
  EXPECT_THAT(std::vector(asked + 1, calls.end()), ElementsAre("Command1_1.BackColor = face"));
  EXPECT_TRUE(std::ranges::includes(files.names, before));
  EXPECT_TRUE(job.shapeExists[1]);
  EXPECT_THAT(files.copied, IsEmpty());
  EXPECT_TRUE(job.idle);
}

TEST_F(OneKind, TheQuestionSpeaksOfTheDefaultNameWhateverNameWasChosen) {
  files.AddSet(Own("/out/a"));  // there, but nobody asks: the default name's set is not
  flow.Command1_Click(1);
  EXPECT_THAT(window.CallsBeginning("AskYesNo"), IsEmpty());
}

TEST_F(OneKind, ExportingAgainAsksTheSecondTime) {
  flow.Command1_Click(1);
  EXPECT_THAT(window.CallsBeginning("AskYesNo"), IsEmpty());
  flow.Command1_Click(1);
  EXPECT_THAT(window.CallsBeginning("AskYesNo"), ElementsAre(kQuestion));
}

TEST_F(AllKinds, TurnYellowAndClearWhatIsLeftOfBeforeTheFirstExport) {
  flow.Command2_Click();
  const std::string firstExport = "export 0 " + Own("/out/a_WIRE of ") + jobPath;
  ExpectInOrder({"Frame2.Enabled = false", "Command2.Enabled = false", "Command2.Enabled = true",
                 "SaveFile North_Field_2006Jun15.shp", "Timer2.Enabled = false",
                 "Command2.BackColor = working", firstExport});
  for (const std::string kind : {"0", "1", "2", "3"}) {
    ExpectInOrder({"SaveFile North_Field_2006Jun15.shp", "Command1_" + kind + ".BackColor = face",
                   "Label1_" + kind + ".Caption = ", firstExport});
  }
}

TEST_F(AllKinds, FollowOneAnotherEachShownBeforeItIsExportedAndReportedAfter) {
  flow.Command2_Click();
  std::vector<std::string> effects;
  const std::string suffixes[] = {"_WIRE", "_BOOM", "_POLY", "_POINT"};
  const std::string captions[] = {"Wire", "Boom", "Poly", "Point"};
  for (std::size_t kind = 0; kind < 4; ++kind) {
    const std::string n = std::to_string(kind);
    effects.insert(effects.end(),
                   {"Label1_" + n + ".Caption = Creating Shape File",
                    "Command1_" + n + ".BackColor = working", "Command1_" + n + ".Enabled = true"});
    if (kind > 0) effects.push_back("Command1_" + std::to_string(kind - 1) + ".Enabled = false");
    effects.insert(effects.end(),
                   {"Label10.Caption = Creating " + captions[kind] + " Shape", "DoEvents",
                    "export " + n + " " + Own("/out/a" + suffixes[kind]) + " of " + jobPath,
                    "Label1_" + n + ".Caption = Shape File Created",
                    "Command1_" + n + ".BackColor = success", "DoEvents"});
  }
  ExpectInOrder(effects);
  EXPECT_THAT(job.shapeExists, ElementsAre(true, true, true, true));
}

TEST_F(AllKinds, CopyTheJobAfterTheSetsAndStartTheTimerLast) {
  flow.Command2_Click();
  ExpectInOrder({"export 3 " + Own("/out/a_POINT of ") + jobPath,
                 "Label1_3.Caption = Shape File Created",
                 "copy " + Own("/out/North.Field.sqlite")});
  const auto calls = Between();
  EXPECT_THAT(std::vector(calls.end() - 3, calls.end()),
              ElementsAre("copy " + Own("/out/North.Field.sqlite"), "Command2.BackColor = success",
                          "Timer2.Enabled = true"));
}

TEST_F(AllKinds, NeverAskToOverwrite) {
  job.shapeExists = {true, true, true, true};
  flow.Command2_Click();
  EXPECT_THAT(window.CallsBeginning("AskYesNo"), IsEmpty());
}

TEST_F(AllKinds, GoOnAfterAKindThatFailed) {
  onExport = [this](int kind, const std::string& basePath) -> exports::ExportOutcome {
    if (kind == 0) throw base::FileError(basePath + ".shp", "No space left on device");
    if (kind == 1) return {};
    files.AddSet(basePath);
    return {.made = true};
  };
  flow.Command2_Click();
  EXPECT_THAT(Between(),
              IsSupersetOf({"Command1_0.BackColor = failure", "Command1_1.BackColor = failure",
                            "Command1_2.BackColor = success", "Command1_3.BackColor = success",
                            "Command2.BackColor = success", "Timer2.Enabled = true"}));
  EXPECT_THAT(job.shapeExists, ElementsAre(false, false, true, true));
}

TEST_F(AllKinds, WriteSideBySideUnderTheProposedName) {
  window.chosen = job.exportFolder + Own("/North_Field_2006Jun15.shp");
  flow.Command2_Click();
  for (const char* suffix : {"_WIRE", "_BOOM", "_POLY", "_POINT"}) {
    EXPECT_EQ(files.names.count(job.DefaultBasePath(suffix) + ".shp"), 1U) << suffix;
  }
  EXPECT_EQ(files.names.count(job.exportFolder + Own("/North.Field.sqlite")), 1U);
}

}  // namespace
}  // namespace kestrin::flow
