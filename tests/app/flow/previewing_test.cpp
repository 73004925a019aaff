#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/flow/flowTest.h"

namespace kestrin::flow {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// What is drawn when, and how its progress shows.
struct Previewing : test::FlowTest {
  std::string ChooseJob() {
    test::JobBuilder job(folder / "a.sqlite");
    return Choose(FillJob(job));
  }
};

TEST_F(Previewing, AFirstSelectionSelectsAndDrawsTheWire) {
  ChooseJob();
  flow.Command3_Click();
  EXPECT_EQ(window.selected, 0);
  EXPECT_THAT(window.calls, Contains("Option1_0 selected"));
  // Cleared by the extent pass, then by the renderer.
  const auto calls = picture.Take();
  EXPECT_THAT(std::vector(calls.begin(), calls.begin() + 2), ElementsAre("Clear", "Clear"));
  EXPECT_THAT(calls, Contains(StartsWith("Polyline")));
}

TEST_F(Previewing, ALaterSelectionKeepsTheKind) {
  ChooseJob();
  window.selected = 3;
  flow.Command3_Click();
  EXPECT_EQ(window.selected, 3);
  EXPECT_EQ(std::ranges::count_if(
                picture.Take(), [](const std::string& call) { return call.starts_with("Circle"); }),
            2);
}

TEST_F(Previewing, ASelectionWalksTheRowsTwiceUnderOneBar) {
  ChooseJob();
  std::vector<std::int32_t> counts;
  window.onYield = [&] {
    counts.push_back(state.progress.count);
    EXPECT_EQ(state.progress.total, 2);
    EXPECT_TRUE(state.progress.twoPass);
    EXPECT_TRUE(window.visible.at("Shape1"));
    EXPECT_TRUE(window.enabled.at("TimerPreview"));
    EXPECT_FALSE(window.enabled.at("Frame1"));
  };
  flow.Command3_Click();
  EXPECT_THAT(counts, ElementsAre(1, 2, 3, 4));
  EXPECT_FALSE(state.progress.twoPass);
  EXPECT_EQ(state.progress.count, 0);
  EXPECT_FALSE(window.visible.at("Shape1"));
  EXPECT_TRUE(window.enabled.at("Frame1"));
}

TEST_F(Previewing, ASelectionStartsTheBarAtZero) {
  ChooseJob();
  window.widths["Shape1"] = 55;
  window.onYield = [this] { EXPECT_EQ(window.widths.at("Shape1"), 0); };
  flow.Command3_Click();
  EXPECT_GT(window.yields, 0);
}

TEST_F(Previewing, AnOptionDrawsItsKindInOnePass) {
  Select("a.sqlite");
  std::vector<std::int32_t> counts;
  window.onYield = [&] { counts.push_back(state.progress.count); };
  flow.Option1_Click(3);
  EXPECT_THAT(counts, ElementsAre(1, 2));
  EXPECT_FALSE(state.progress.twoPass);
  EXPECT_THAT(picture.Take(), Contains(StartsWith("Circle")));
  const auto calls = window.Take();
  EXPECT_EQ(calls.front(), "Frame1.Enabled = false");
  EXPECT_THAT(calls, Contains("Picture1.Enabled = false"));
  EXPECT_THAT(calls, Contains("Label8.Visible = true"));
  EXPECT_TRUE(window.enabled.at("Picture1"));
}

TEST_F(Previewing, AnOptionStopsTheControlsThenShowsItsProgressThenDraws) {
  Select("a.sqlite");
  std::vector<std::string> before;
  window.onYield = [&] {
    if (before.empty()) before = window.calls;
  };
  flow.Option1_Click(0);
  ASSERT_GE(before.size(), 8U);
  EXPECT_THAT(std::vector(before.end() - 8, before.end()),
              ElementsAre("Picture1.Enabled = false", "DoEvents", "Label7.Visible = true",
                          "Shape1.Visible = true", "Label8.Visible = true",
                          "TimerPreview.Enabled = true", "Shape1.Width = 0", "DoEvents"));
}

TEST_F(Previewing, AnOptionWithoutAJobDoesNothing) {
  flow.Option1_Click(2);
  EXPECT_THAT(window.Take(), IsEmpty());
  EXPECT_THAT(picture.Take(), IsEmpty());
}

TEST_F(Previewing, AJobThatCannotBePreviewedIsNotLoaded) {
  test::JobBuilder job(folder / "a.sqlite");
  FillJob(job).Execute("DELETE FROM ReferenceLocationChangeTable");
  Choose(job);
  flow.Command3_Click();
  EXPECT_EQ(state.preview.jobPath, "");
  EXPECT_EQ(state.job.dateText, "1999Aug22");
  EXPECT_EQ(window.selected, 0);
  EXPECT_FALSE(window.enabled.at("Option1_0"));
  EXPECT_EQ(window.captions.at("Label5"), "");
}

TEST_F(Previewing, CancellingAnOptionsPreviewPassesThrough) {
  Select("a.sqlite");
  window.onYield = [] { throw base::RunCancelled(); };
  EXPECT_THROW(flow.Option1_Click(0), base::RunCancelled);
  EXPECT_FALSE(window.enabled.at("Frame1"));
}

TEST_F(Previewing, ATickWidensThePreviewsBar) {
  window.widths["Label7"] = 105.4;
  state.progress = {.count = 10, .total = 40, .twoPass = false};
  flow.TimerPreview_Timer();
  EXPECT_THAT(window.Take(), ElementsAre("Shape1.Width = 26.25", "DoEvents"));
  state.progress.twoPass = true;
  flow.TimerPreview_Timer();
  EXPECT_THAT(window.Take(), ElementsAre("Shape1.Width = 13.125", "DoEvents"));
}

TEST_F(Previewing, ATickWidensTheExportsBar) {
  window.widths["Label9"] = 105;
  state.progress = {.count = 40, .total = 40, .twoPass = false};
  flow.TimerShape_Timer();
  EXPECT_THAT(window.Take(), ElementsAre("Shape2.Width = 105", "DoEvents"));
}

TEST_F(Previewing, ATickWithoutATotalLeavesTheBar) {
  state.progress = {.count = 5, .total = 0, .twoPass = false};
  flow.TimerPreview_Timer();
  flow.TimerShape_Timer();
  EXPECT_THAT(window.CallsBeginning("Shape"), IsEmpty());
}

}  // namespace
}  // namespace kestrin::flow
