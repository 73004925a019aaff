#include "preview/renderers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/preview/previewJob.h"

namespace kestrin::preview {
namespace {

using test::PreviewJob;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(WirePreview, DrawsThePathInOneCall) {
  PreviewJob job;
  job.At(1, 10, 20).At(2, 30, 40).At(3, 50, 45);
  EXPECT_THAT(job.Drawn(DrawWirePreview), ElementsAre("Polyline 1 10,80 30,60 50,55"));
}

TEST(WirePreview, NeverJoinsThePathAcrossABreak) {
  PreviewJob job;
  job.At(1, 10, 20).At(2, 30, 40).At(3, 50, 45, 0, true).At(4, 60, 45);
  EXPECT_THAT(job.Drawn(DrawWirePreview),
              ElementsAre("Polyline 1 10,80 30,60", "Polyline 1 50,55 60,55"));
}

TEST(WirePreview, DrawsNothingOfAPathThatBreaksAtEveryRow) {
  PreviewJob job;
  job.At(1, 10, 20, 0, true).At(2, 30, 40, 0, true).At(3, 50, 45, 0, true);
  EXPECT_THAT(job.Drawn(DrawWirePreview), IsEmpty());
}

TEST(WirePreview, DrawsNoStretchOfASinglePoint) {
  PreviewJob job;
  job.At(1, 10, 20).At(2, 30, 40, 0, true).At(3, 50, 45).At(4, 70, 70, 0, true);
  EXPECT_THAT(job.Drawn(DrawWirePreview), ElementsAre("Polyline 1 30,60 50,55"));
}

TEST(WirePreview, KeepsEqualPoints) {
  PreviewJob job;
  job.At(1, 10, 20).At(2, 10, 20);
  EXPECT_THAT(job.Drawn(DrawWirePreview), ElementsAre("Polyline 1 10,80 10,80"));
}

TEST(WirePreview, IsNotClippedToTheExtent) {
  PreviewJob job;
  job.At(1, -10, 20).At(2, 130, 140);
  EXPECT_THAT(job.Drawn(DrawWirePreview), ElementsAre("Polyline 1 -10,80 130,-40"));
}

TEST(WirePreview, FollowsTheReferenceLocationFromItsOwnTimeOn) {
  PreviewJob job;
  const double latitude = test::kLatitude + 0.0001;
  job.builder.Reference({1, 2000}, latitude, test::kLongitude);
  job.At(1, 10, 20).At(2, 10, 20);
  const geo::UtmPoint moved = test::Origin(latitude);
  const geo::UtmPoint origin = test::Origin();
  const auto x = std::lround(10 + moved.easting - origin.easting);
  const auto y = std::lround(80 - (moved.northing - origin.northing));
  EXPECT_THAT(job.Drawn(DrawWirePreview),
              ElementsAre("Polyline 1 10,80 " + std::to_string(x) + "," + std::to_string(y)));
  EXPECT_LT(y, 75);
}

TEST(WirePreview, SkipsARowWithoutAPlace) {
  PreviewJob job;
  job.At(1, 10, 20).At(2, 1e300, 40).At(3, 50, 45);
  job.builder.Execute(
      "INSERT INTO GpsDataTable (gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, type) "
      "VALUES (1, 2500, 9e999, 1, 8192)");
  EXPECT_THAT(job.Drawn(DrawWirePreview), ElementsAre("Polyline 1 10,80 50,55"));
}

TEST(WirePreview, BreaksThePathAlsoAtARowWithoutAPlace) {
  PreviewJob job;
  job.At(1, 10, 20).At(2, 20, 20).At(3, 1e300, 40, 0, true).At(4, 50, 45).At(5, 60, 45);
  EXPECT_THAT(job.Drawn(DrawWirePreview),
              ElementsAre("Polyline 1 10,80 20,80", "Polyline 1 50,55 60,55"));
}

}  // namespace
}  // namespace kestrin::preview
