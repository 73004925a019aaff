#include "preview/renderers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/preview/previewJob.h"

namespace kestrin::preview {
namespace {

using test::PreviewJob;
using testing::ElementsAre;
using testing::IsEmpty;

PreviewJob& TenWide(PreviewJob& job) { return job.Implement(0, {{4, -3, 0, 0}, {6, 2, 0, 0}}); }

TEST(PolyPreview, FillsAndOutlinesEachStepAndEdgesTheStart) {
  PreviewJob job;
  TenWide(job).At(1, 50, 20).At(2, 50, 30).At(3, 50, 40);
  EXPECT_THAT(
      job.Drawn(DrawPolyPreview),
      ElementsAre("Polygon 2 2 55,80 55,70 45,70 45,80", "Line 1 55,80 55,70", "Line 1 45,80 45,70",
                  "Line 1 55,80 45,80", "Polygon 2 2 55,70 55,60 45,60 45,70", "Line 1 55,70 55,60",
                  "Line 1 45,70 45,60"));
}

TEST(PolyPreview, SectionsOfAnyNegativeWidthAreAbsent) {
  // Four of them would take 2 m from the 10.
  PreviewJob job;
  std::vector<jobstore::Section> sections(4, {-0.5, 0, 0, 0});
  sections.push_back({10, 0, 0, 0});
  job.Implement(0, sections).At(1, 50, 20).At(2, 50, 30);
  EXPECT_THAT(job.Drawn(DrawPolyPreview),
              ElementsAre("Polygon 2 2 55,80 55,70 45,70 45,80", "Line 1 55,80 55,70",
                          "Line 1 45,80 45,70", "Line 1 55,80 45,80"));
}

TEST(PolyPreview, EdgesTheEndOfARunAtABreak) {
  PreviewJob job;
  TenWide(job).At(1, 50, 20).At(2, 50, 30).At(3, 50, 60, 0, true).At(4, 50, 70);
  EXPECT_THAT(job.Drawn(DrawPolyPreview),
              ElementsAre("Polygon 2 2 55,80 55,70 45,70 45,80", "Line 1 55,80 55,70",
                          "Line 1 45,80 45,70", "Line 1 55,80 45,80",
                          "Line 1 55,70 45,70",  // the end of the first run
                          "Polygon 2 2 55,40 55,30 45,30 45,40", "Line 1 55,40 55,30",
                          "Line 1 45,40 45,30", "Line 1 55,40 45,40"));
}

TEST(PolyPreview, ABreakWithoutAnOpenRunDrawsNothing) {
  PreviewJob job;
  TenWide(job).At(1, 50, 20).At(2, 50, 40, 0, true).At(3, 50, 60, 0, true);
  EXPECT_THAT(job.Drawn(DrawPolyPreview), IsEmpty());
}

TEST(PolyPreview, AStationaryVehicleAddsNothing) {
  PreviewJob job;
  TenWide(job).At(1, 50, 20).At(2, 50.1, 20.1).At(3, 50, 20);
  EXPECT_THAT(job.Drawn(DrawPolyPreview), IsEmpty());
}

TEST(PolyPreview, ARowWithoutVisibleMovementIsNoBreakEither) {
  PreviewJob job;
  TenWide(job).At(1, 50, 20).At(2, 50, 30).At(3, 50, 30, 0, true).At(4, 50, 40);
  EXPECT_THAT(
      job.Drawn(DrawPolyPreview),
      ElementsAre("Polygon 2 2 55,80 55,70 45,70 45,80", "Line 1 55,80 55,70", "Line 1 45,80 45,70",
                  "Line 1 55,80 45,80", "Polygon 2 2 55,70 55,60 45,60 45,70", "Line 1 55,70 55,60",
                  "Line 1 45,70 45,60"));
}

TEST(PolyPreview, TurningOnTheSpotIsMovement) {
  PreviewJob job;
  const double threeFourFive = std::acos(0.8);
  TenWide(job).At(1, 50, 20).At(2, 50, 20, threeFourFive);
  EXPECT_THAT(job.Drawn(DrawPolyPreview),
              ElementsAre("Polygon 2 2 55,80 54,83 46,77 45,80", "Line 1 55,80 54,83",
                          "Line 1 45,80 46,77", "Line 1 55,80 45,80"));
}

TEST(PolyPreview, SumsThePositiveWidthsOnly) {
  PreviewJob job;
  job.Implement(0, {{4, 0, 0, 0}, {-90, 0, 0, 0}, {0, 0, 0, 0}, {2, 40, 0, 0}});
  job.At(1, 50, 20).At(2, 50, 30);
  EXPECT_THAT(job.Drawn(DrawPolyPreview),
              ElementsAre("Polygon 2 2 53,80 53,70 47,70 47,80", "Line 1 53,80 53,70",
                          "Line 1 47,80 47,70", "Line 1 53,80 47,80"));
}

TEST(PolyPreview, WidthsOfZeroMakeASwathWithoutWidth) {
  PreviewJob job;
  job.Implement(0, {{0, 0, 0, 0}}).At(1, 50, 20).At(2, 50, 30);
  EXPECT_THAT(job.Drawn(DrawPolyPreview),
              ElementsAre("Polygon 2 2 50,80 50,70 50,70 50,80", "Line 1 50,80 50,70",
                          "Line 1 50,80 50,70", "Line 1 50,80 50,80"));
}

TEST(PolyPreview, TakesAnImplementFromItsOwnTimeOn) {
  PreviewJob job;
  job.Implement(0, {{10, 0, 0, 0}}).Implement(2, {{20, 0, 0, 0}}).At(1, 50, 20).At(2, 50, 30);
  EXPECT_THAT(job.Drawn(DrawPolyPreview),
              ElementsAre("Polygon 2 2 55,80 60,70 40,70 45,80", "Line 1 55,80 60,70",
                          "Line 1 45,80 40,70", "Line 1 55,80 45,80"));
}

TEST(PolyPreview, DrawsNothingWithoutAnImplement) {
  PreviewJob job;
  job.At(1, 50, 20).At(2, 50, 30);
  const PreviewState state = test::HundredMetres(job.builder.Finish());
  EXPECT_THAT(job.Draw(DrawPolyPreview, state), ElementsAre("Clear"));
}

TEST(PolyPreview, SkipsARowWithoutAPlace) {
  PreviewJob job;
  TenWide(job).At(1, 50, 20).At(2, 1e300, 25).At(3, 50, 30);
  EXPECT_THAT(job.Drawn(DrawPolyPreview),
              ElementsAre("Polygon 2 2 55,80 55,70 45,70 45,80", "Line 1 55,80 55,70",
                          "Line 1 45,80 45,70", "Line 1 55,80 45,80"));
}

TEST(PolyPreview, BreaksTheSwathAlsoAtARowWithoutAPlace) {
  PreviewJob job;
  TenWide(job).At(1, 50, 20).At(2, 50, 30).At(3, 1e300, 0, 0, true).At(4, 50, 60).At(5, 50, 70);
  EXPECT_THAT(job.Drawn(DrawPolyPreview),
              ElementsAre("Polygon 2 2 55,80 55,70 45,70 45,80", "Line 1 55,80 55,70",
                          "Line 1 45,80 45,70", "Line 1 55,80 45,80",
                          "Line 1 55,70 45,70",  // the end of the first run
                          "Polygon 2 2 55,40 55,30 45,30 45,40", "Line 1 55,40 55,30",
                          "Line 1 45,40 45,30", "Line 1 55,40 45,40"));
}

}  // namespace
}  // namespace kestrin::preview
