#include "preview/renderers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/preview/previewJob.h"

namespace kestrin::preview {
namespace {

using test::PreviewJob;
using testing::ElementsAre;

TEST(PointPreview, DrawsACircleOfRadiusThreeAtEveryEpoch) {
  PreviewJob job;
  job.At(1, 10, 20).At(2, 10, 20).At(3, 30, 40);
  EXPECT_THAT(job.Drawn(DrawPointPreview),
              ElementsAre("Circle 1 10,80 3", "Circle 1 10,80 3", "Circle 1 30,60 3"));
}

TEST(PointPreview, SkipsPointsOutsideTheExtent) {
  PreviewJob job;
  job.At(1, -0.1, 20).At(2, 100.1, 20).At(3, 50, -0.1).At(4, 50, 100.1).At(5, 50, 50);
  EXPECT_THAT(job.Drawn(DrawPointPreview), ElementsAre("Circle 1 50,50 3"));
}

TEST(PointPreview, TheBordersOfTheExtentAreWithinIt) {
  PreviewJob job;
  job.At(1, 0, 0).At(2, 100, 100);
  EXPECT_THAT(job.Drawn(DrawPointPreview), ElementsAre("Circle 1 0,100 3", "Circle 1 100,0 3"));
}

TEST(PointPreview, ASinglePlaceIsDrawnInTheMiddleAtACentimetreAUnit) {
  PreviewJob job;
  const geo::UtmPoint origin = test::Origin();
  const PreviewState state{job.At(1, 0, 0).builder.Finish(), {geo::Box::Of(origin, origin), 0}};
  EXPECT_THAT(job.Draw(DrawPointPreview, state),
              ElementsAre("Clear", "Circle 1 50,50 3", "Refresh"));
}

}  // namespace
}  // namespace kestrin::preview
