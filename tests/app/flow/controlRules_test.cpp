#include "app/flow/controlRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/flow/recordingWindow.h"

namespace kestrin::flow {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

struct Rules : testing::Test {
  test::RecordingWindow window;
  Progress progress{.count = 7, .total = 10, .twoPass = true};
  ControlRules rules{window, window, progress};
};

TEST_F(Rules, DisablingLeavesTheSelectedOptionAsItIs) {
  window.selected = 2;
  rules.SetControlsEnabled(false, true);
  EXPECT_THAT(window.Take(), ElementsAre("Frame1.Enabled = false", "Frame2.Enabled = false",
                                         "Frame4.Enabled = false", "Command1_0.Enabled = false",
                                         "Option1_0.Enabled = false", "Command1_1.Enabled = false",
                                         "Option1_1.Enabled = false",
                                         "Command1_2.Enabled = false",  //
                                         "Command1_3.Enabled = false", "Option1_3.Enabled = false",
                                         "Command2.Enabled = false", "Command3.Enabled = false",
                                         "Command4.Enabled = false", "DoEvents"));
  EXPECT_TRUE(progress.twoPass);
  EXPECT_EQ(progress.count, 7);
}

TEST_F(Rules, DisablingTakesThePreviewAlongUnlessItIsKept) {
  rules.SetControlsEnabled(false, false);
  EXPECT_EQ(window.enabled.at("Picture1"), false);
  EXPECT_EQ(window.enabled.at("Option1_0"), false);
  EXPECT_EQ(window.Take().back(), "DoEvents");
}

TEST_F(Rules, EnablingEnablesAllAndHidesBothIndicators) {
  window.selected = 2;
  rules.SetControlsEnabled(true, false);
  std::vector<std::string> expected;
  for (const char* name : {"Frame1", "Frame2", "Frame4", "Command1_0", "Option1_0", "Command1_1",
                           "Option1_1", "Command1_2", "Option1_2", "Command1_3", "Option1_3",
                           "Command2", "Command3", "Command4", "Picture1"}) {
    expected.push_back(std::string(name) + ".Enabled = true");
  }
  for (const char* call :
       {"Label7.Visible = false", "Shape1.Visible = false", "Label8.Visible = false",
        "TimerPreview.Enabled = false", "Shape1.Width = 0", "DoEvents", "Label9.Visible = false",
        "Shape2.Visible = false", "Label10.Visible = false", "TimerShape.Enabled = false",
        "Shape2.Width = 0", "DoEvents", "DoEvents"}) {
    expected.emplace_back(call);
  }
  EXPECT_THAT(window.Take(), ElementsAreArray(expected));
  EXPECT_FALSE(progress.twoPass);
  EXPECT_EQ(progress.count, 0);
  EXPECT_EQ(progress.total, 10);
}

TEST_F(Rules, ExportProgressShowsItsKind) {
  const std::vector<std::string> captions{"Creating Wire Shape", "Creating Boom Shape",
                                          "Creating Poly Shape", "Creating Point Shape"};
  for (int kind = 0; kind < 4; ++kind) {
    progress.count = 5;
    rules.ShowExportProgress(true, kind);
    EXPECT_EQ(progress.count, 0);
    EXPECT_THAT(
        window.Take(),
        ElementsAre("Label10.Caption = " + captions[static_cast<std::size_t>(kind)],
                    "Label9.Visible = true", "Shape2.Visible = true", "Label10.Visible = true",
                    "TimerShape.Enabled = true", "Shape2.Width = 0", "DoEvents"));
  }
}

TEST_F(Rules, ExportProgressKeepsItsCaptionForAnotherKindAndWhenHidden) {
  rules.ShowExportProgress(true, 4);
  rules.ShowExportProgress(true, -1);
  rules.ShowExportProgress(false, 0);
  EXPECT_EQ(window.captions.count("Label10"), 0U);
  EXPECT_FALSE(window.visible.at("Label10"));
  EXPECT_FALSE(window.enabled.at("TimerShape"));
}

TEST_F(Rules, PreviewProgressGoesOnInTheSecondPass) {
  rules.ShowPreviewProgress(true);
  EXPECT_THAT(window.Take(),
              ElementsAre("Label7.Visible = true", "Shape1.Visible = true", "Label8.Visible = true",
                          "TimerPreview.Enabled = true", "DoEvents"));
  EXPECT_EQ(progress.count, 7);
  EXPECT_TRUE(progress.twoPass);
}

TEST_F(Rules, PreviewProgressStartsAtZeroInASinglePass) {
  progress.twoPass = false;
  rules.ShowPreviewProgress(true);
  EXPECT_EQ(progress.count, 0);
  EXPECT_THAT(window.CallsBeginning("Shape1.Width"), ElementsAre("Shape1.Width = 0"));
}

TEST_F(Rules, HidingPreviewProgressClearsTheTwoPassFlag) {
  rules.ShowPreviewProgress(false);
  EXPECT_FALSE(progress.twoPass);
  EXPECT_EQ(progress.count, 0);
  EXPECT_FALSE(window.enabled.at("TimerPreview"));
}

TEST(Controls, AreNamedWithTheirIndex) {
  EXPECT_EQ(NameOf({Control::kExport, 2}), "Command1_2");
  EXPECT_EQ(NameOf({Control::kPreviewKind, 0}), "Option1_0");
  EXPECT_EQ(NameOf({Control::kJobFrame}), "Frame1");
  EXPECT_EQ(NameOf({Control::kExportCaption}), "Label10");
  EXPECT_EQ(NameOf({Control::kExportTimer}), "TimerShape");
}

}  // namespace
}  // namespace kestrin::flow
