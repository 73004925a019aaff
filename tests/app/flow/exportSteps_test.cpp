#include <algorithm>

#include "tests/app/flow/exportCommandsTest.h"

namespace kestrin::flow {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

/// The button of one kind, step by step.
struct OneKind : test::CommandsTest {};

/// "CREATE ALL", step by step.
struct AllKinds : test::CommandsTest {};

TEST_F(OneKind, GoesThroughItsStepsInOrder) {
  commands.Command1_Click(2);
  EXPECT_THAT(
      screen.Take(),
      ElementsAre("SetControlsEnabled false,true", "Command1(2) enabled",
                  "AskSaveName North_Field_2006Jun15_POLY.shp",  //
                  "Command1(0) face", "Command1(1) face", "Command1(2) face", "Command1(3) face",
                  "Timer2 off", "Command2 face", "Command1(2) yellow",
                  "DoEvents",  //
                  "Label1(2) 'Creating Shape File'", "ShowExportProgress true,2", "DoEvents",
                  "export 2 /out/a of /jobs/North.Field.sqlite", "Label1(2) 'Shape File Created'",
                  "Command1(2) green", "DoEvents", "SetControlsEnabled true"));
  EXPECT_TRUE(state.shapeExists[2]);
  EXPECT_TRUE(state.idle);
  EXPECT_THAT(files.copied, ElementsAre("/jobs/North.Field.sqlite to /out/North.Field.sqlite"));
}

TEST_F(OneKind, ASetThatWasNotMadeTurnsItsButtonRed) {
  onExport = [](int, const std::string&) { return exports::ExportOutcome{}; };
  state.shapeExists[0] = true;
  commands.Command1_Click(0);
  const auto calls = Between();
  EXPECT_THAT(std::vector(calls.end() - 3, calls.end()),
              ElementsAre("Label1(0) 'Error Creating File'", "Command1(0) red", "DoEvents"));
  EXPECT_FALSE(state.shapeExists[0]);
}

TEST_F(OneKind, ASetThatLacksOneOfItsThreeFilesWasNotMade) {
  for (const char* missing : {".shp", ".shx", ".dbf"}) {
    onExport = [this, missing](int, const std::string& basePath) {
      files.AddSet(basePath);
      files.names.erase(basePath + missing);
      return exports::ExportOutcome{};
    };
    state.shapeExists[0] = true;
    commands.Command1_Click(0);
    EXPECT_FALSE(state.shapeExists[0]) << missing;
  }
}

TEST_F(OneKind, AsksBeforeOverwriting) {
  state.shapeExists[1] = true;
  commands.Command1_Click(1);
  const auto calls = Between();
  EXPECT_EQ(calls.at(10), "AskYesNo Shape File already exists.  Do you want to overwrite it?");
  EXPECT_EQ(calls.at(11), "Label1(1) 'Creating Shape File'");
}

TEST_F(OneKind, AnsweringNoLeavesFilesAndLabelsAsTheyAre) {
  files.AddSet("/out/a");
  const auto before = files.names;
  state.exportFolder = "/out";
  files.names.insert("/out");
  state.shapeExists[1] = true;
  screen.yes = false;
  commands.Command1_Click(1);
  const auto calls = Between();
  EXPECT_EQ(calls.at(10), "AskYesNo Shape File already exists.  Do you want to overwrite it?");
  EXPECT_THAT(std::vector(calls.begin() + 11, calls.end()), ElementsAre("Command1(1) face"));
  EXPECT_TRUE(std::ranges::includes(files.names, before));
  EXPECT_TRUE(state.shapeExists[1]);
  EXPECT_THAT(files.copied, IsEmpty());
  EXPECT_TRUE(state.idle);
}

TEST_F(OneKind, TheQuestionSpeaksOfTheDefaultNameWhateverNameWasChosen) {
  files.AddSet("/out/a");  // there, but nobody asks: the default name's set is not
  commands.Command1_Click(1);
  EXPECT_EQ(
      std::ranges::count_if(screen.Take(),
                            [](const std::string& call) { return call.starts_with("AskYesNo"); }),
      0);
}

TEST_F(OneKind, ExportingAgainAsksTheSecondTime) {
  commands.Command1_Click(1);
  screen.Take();
  commands.Command1_Click(1);
  EXPECT_EQ(Between().at(10), "AskYesNo Shape File already exists.  Do you want to overwrite it?");
}

std::vector<std::string> StepsOfKind(int kind, const std::string& suffix) {
  const std::string n = "(" + std::to_string(kind) + ")";
  std::vector<std::string> steps{"Label1" + n + " 'Creating Shape File'",
                                 "Command1" + n + " yellow", "Command1" + n + " enabled"};
  if (kind > 0) steps.push_back("Command1(" + std::to_string(kind - 1) + ") disabled");
  for (const std::string& step :
       {"ShowExportProgress true," + std::to_string(kind), std::string("DoEvents"),
        "export " + std::to_string(kind) + " /out/a" + suffix + " of /jobs/North.Field.sqlite",
        "Label1" + n + " 'Shape File Created'", "Command1" + n + " green",
        std::string("DoEvents")}) {
    steps.push_back(step);
  }
  return steps;
}

TEST_F(AllKinds, GoesThroughItsStepsInOrder) {
  commands.Command2_Click();
  std::vector<std::string> steps{"SetControlsEnabled false,true",
                                 "Command2 enabled",
                                 "AskSaveName North_Field_2006Jun15.shp",
                                 "Timer2 off",
                                 "Command2 yellow",  //
                                 "Command1(0) face",
                                 "Label1(0) ''",
                                 "Command1(1) face",
                                 "Label1(1) ''",
                                 "Command1(2) face",
                                 "Label1(2) ''",
                                 "Command1(3) face",
                                 "Label1(3) ''"};
  for (const auto& part : {StepsOfKind(0, "_WIRE"), StepsOfKind(1, "_BOOM"),
                           StepsOfKind(2, "_POLY"), StepsOfKind(3, "_POINT")}) {
    steps.insert(steps.end(), part.begin(), part.end());
  }
  for (const char* step : {"Command2 green", "Timer2 on", "SetControlsEnabled true"}) {
    steps.emplace_back(step);
  }
  EXPECT_THAT(screen.Take(), ElementsAreArray(steps));
  EXPECT_THAT(state.shapeExists, ElementsAre(true, true, true, true));
  EXPECT_THAT(files.copied, ElementsAre("/jobs/North.Field.sqlite to /out/North.Field.sqlite"));
}

TEST_F(AllKinds, NeverAskToOverwrite) {
  state.shapeExists = {true, true, true, true};
  commands.Command2_Click();
  EXPECT_EQ(
      std::ranges::count_if(screen.Take(),
                            [](const std::string& call) { return call.starts_with("AskYesNo"); }),
      0);
}

TEST_F(AllKinds, GoOnAfterAKindThatFailed) {
  onExport = [this](int kind, const std::string& basePath) -> exports::ExportOutcome {
    if (kind == 0) throw base::FileError(basePath + ".shp", "No space left on device");
    if (kind == 1) return {};
    files.AddSet(basePath);
    return {.made = true};
  };
  commands.Command2_Click();
  const auto calls = Between();
  EXPECT_THAT(calls,
              testing::IsSupersetOf({"Command1(0) red", "Command1(1) red", "Command1(2) green",
                                     "Command1(3) green", "Command2 green", "Timer2 on"}));
  EXPECT_THAT(state.shapeExists, ElementsAre(false, false, true, true));
}

TEST_F(AllKinds, WriteSideBySideUnderTheProposedName) {
  screen.chosen = state.exportFolder + "/North_Field_2006Jun15.shp";
  commands.Command2_Click();
  for (const char* suffix : {"_WIRE", "_BOOM", "_POLY", "_POINT"}) {
    EXPECT_EQ(files.names.count(DefaultBasePath(state, suffix, '/') + ".shp"), 1U) << suffix;
  }
  EXPECT_EQ(files.names.count(state.exportFolder + "/North.Field.sqlite"), 1U);
}

TEST_F(AllKinds, FollowThePlatformsSeparator) {
  state.jobFolder = "C:\\jobs\\";
  state.exportFolder = "C:\\data\\North_Field\\2006Jun15";
  files.names = {"C:\\jobs\\North.Field.sqlite"};
  screen.chosen = "C:\\out\\a.shp";
  ExportCommands windows{state, screen, files, host, kinds, '\\'};
  windows.Command2_Click();
  EXPECT_THAT(files.made, ElementsAre("C:", "C:\\data", "C:\\data\\North_Field",
                                      "C:\\data\\North_Field\\2006Jun15"));
  EXPECT_THAT(files.copied,
              ElementsAre("C:\\jobs\\North.Field.sqlite to C:\\out\\North.Field.sqlite"));
}

}  // namespace
}  // namespace kestrin::flow
