#include "preview/renderers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "tests/preview/previewJob.h"

namespace kestrin::preview {
namespace {

using test::PreviewJob;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(BoomPreview, DrawsEverySectionAtEveryEpochAndTheLastOnceMore) {
  PreviewJob job;
  job.Implement(0, {{8, -6, 0, 0}, {4, 6, 0, 0}}).At(1, 50, 20).At(2, 50, 30);
  EXPECT_THAT(job.Drawn(DrawBoomPreview),
              ElementsAre("Line 1 48,80 40,80", "Line 1 58,80 54,80", "Line 1 48,70 40,70",
                          "Line 1 58,70 54,70", "Polyline 1 58,70 54,70"));
}

TEST(BoomPreview, LiesAcrossTheHeading) {
  PreviewJob job;
  job.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50, std::numbers::pi / 2);
  EXPECT_THAT(job.Drawn(DrawBoomPreview),
              ElementsAre("Line 1 50,55 50,45", "Polyline 1 50,55 50,45"));
}

TEST(BoomPreview, AddsSectionOffsetsUnrotated) {
  PreviewJob job;
  job.Implement(0, {{10, 3, 7, 0}}).At(1, 50, 50, std::numbers::pi / 2);
  EXPECT_THAT(job.Drawn(DrawBoomPreview),
              ElementsAre("Line 1 53,48 53,38", "Polyline 1 53,48 53,38"));
}

TEST(BoomPreview, DrawsSectionsThatAreSwitchedOff) {
  PreviewJob job;
  jobstore::EpochRow off;
  off.time = {1, 1000};
  off.east = off.north = 50;
  off.type = test::kTakesPart;
  off.boomStatus = 0;
  job.Implement(0, {{10, 0, 0, 0}}).builder.Epoch(off);
  EXPECT_THAT(job.Drawn(DrawBoomPreview),
              ElementsAre("Line 1 55,50 45,50", "Polyline 1 55,50 45,50"));
}

TEST(BoomPreview, DrawsNoLineWithoutAPositiveWidth) {
  PreviewJob job;
  job.Implement(0, {{0, 0, 0, 0}, {-3, 0, 0, 0}}).At(1, 50, 50).At(2, 60, 60);
  EXPECT_THAT(job.Drawn(DrawBoomPreview), IsEmpty());
}

TEST(BoomPreview, SectionOfAnyNegativeWidthIsAbsent) {
  PreviewJob job;
  job.Implement(0, {{-0.5, 0, 0, 0}, {10, 0, 0, 0}}).At(1, 50, 50);
  EXPECT_THAT(job.Drawn(DrawBoomPreview),
              ElementsAre("Line 1 55,50 45,50", "Polyline 1 55,50 45,50"));
}

TEST(BoomPreview, TakesAnImplementFromItsOwnTimeOnTheLastOneToo) {
  PreviewJob job;
  job.Implement(1, {{10, 0, 0, 0}}).Implement(2, {{20, 0, 0, 0}});
  job.At(0, 50, 10).At(2, 50, 20);
  EXPECT_THAT(job.Drawn(DrawBoomPreview),
              ElementsAre("Line 1 55,90 45,90", "Line 1 60,80 40,80", "Polyline 1 60,80 40,80"));
}

TEST(BoomPreview, DrawsASectionOfItsOwnSlotOnly) {
  PreviewJob job;
  std::vector<jobstore::Section> sections(jobstore::kSectionSlots, {-1, 0, 0, 0});
  sections[15] = {4, 1, 0, 0};
  job.Implement(0, sections).At(1, 50, 50);
  EXPECT_THAT(job.Drawn(DrawBoomPreview),
              ElementsAre("Line 1 53,50 49,50", "Polyline 1 53,50 49,50"));
}

TEST(BoomPreview, SkipsALineWithoutAPlace) {
  PreviewJob job;
  job.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50).At(2, 1e300, 60);
  EXPECT_THAT(job.Drawn(DrawBoomPreview),
              ElementsAre("Line 1 55,50 45,50", "Polyline 1 55,50 45,50"));
}

TEST(BoomPreview, SkipsASectionOfWhichOneEndHasNoPlace) {
  PreviewJob job;
  // Each of the wide ones has one end at a place, the left or the right.
  const jobstore::Section toTheRight{2e12, 1e12, 0, 0};
  const jobstore::Section toTheLeft{2e12, -1e12, 0, 0};
  job.Implement(0, {{8, -6, 0, 0}, toTheRight, toTheLeft, {4, 6, 0, 0}, toTheRight}).At(1, 50, 50);
  EXPECT_THAT(job.Drawn(DrawBoomPreview),
              ElementsAre("Line 1 48,50 40,50", "Line 1 58,50 54,50", "Polyline 1 58,50 54,50"));
}

}  // namespace
}  // namespace kestrin::preview
