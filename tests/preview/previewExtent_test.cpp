#include "preview/previewExtent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "tests/preview/previewJob.h"

namespace kestrin::preview {
namespace {

using test::PreviewJob;
using testing::ElementsAre;
using testing::IsEmpty;

/// Metres; positions of a UTM plane hold about a nanometre.
constexpr double kTolerance = 1e-8;

struct Extent : testing::Test {
  PreviewJob job;
  PreviewState state{"job of before", {{1, 2, 3, 4}, 5}};
  const geo::UtmPoint origin = test::Origin();

  /// The extent found, east and north of the origin.
  PreviewExtent Find(double width, double height) {
    job.picture = test::RecordingPicture(width, height);
    FindPreviewExtent(job.builder.Finish(), state, job.picture, job.host);
    const geo::Box& ground = state.extent.ground;
    return {{ground.xMin - origin.easting, ground.yMin - origin.northing,
             ground.xMax - origin.easting, ground.yMax - origin.northing},
            state.extent.scale};
  }

  void ExpectExtent(const PreviewExtent& found, double xMin, double yMin, double xMax, double yMax,
                    double scale) {
    EXPECT_NEAR(found.ground.xMin, xMin, kTolerance);
    EXPECT_NEAR(found.ground.yMin, yMin, kTolerance);
    EXPECT_NEAR(found.ground.xMax, xMax, kTolerance);
    EXPECT_NEAR(found.ground.yMax, yMax, kTolerance);
    EXPECT_NEAR(found.scale, scale, kTolerance);
  }
};

// 200 by 100 m on 100 by 100 units. The left margin is 5 * 200 / 100 = 10 m, the right
// one 5 * 210 / 100 = 10.5 m, the scale 220.5 / 100, and (220.5 - 100) / 2 = 60.25 m
// come above and below.
TEST_F(Extent, AWideJobIsFittedInWidthAndCentredInHeight) {
  job.At(1, 0, 0).At(2, 200, 100);
  ExpectExtent(Find(100, 100), -10, -60.25, 210.5, 160.25, 2.205);
}

TEST_F(Extent, AHighJobIsFittedInHeightAndCentredInWidth) {
  job.At(1, 0, 0).At(2, 100, 200);
  ExpectExtent(Find(100, 100), -60.25, -10, 160.25, 210.5, 2.205);
}

TEST_F(Extent, AJobDrivenStraightNorthIsCentredInWidth) {
  job.At(1, 0, 0).At(2, 0, 100);
  ExpectExtent(Find(100, 50), -121.0, -10, 121.0, 111, 2.42);
}

// As wide as high in picture units: the height decides, 5 * 100 / 100 below and
// 5 * 105 / 100 above.
TEST_F(Extent, AJobOfThePicturesOwnShapeIsFittedInHeight) {
  job.At(1, 0, 0).At(2, 100, 100);
  ExpectExtent(Find(100, 100), -5.125, -5, 105.125, 105.25, 1.1025);
}

TEST_F(Extent, ThePicturesShapeDecidesNotTheGrounds) {
  job.At(1, 0, 0).At(2, 200, 100);  // 0.2 m a unit across, 1 m a unit down
  ExpectExtent(Find(1000, 100), -451.25, -5, 651.25, 105.25, 1.1025);
}

TEST_F(Extent, ASinglePointWithoutAnImplementHasScaleZero) {
  job.At(1, 7, 9);
  ExpectExtent(Find(100, 100), 7, 9, 7, 9, 0);
  EXPECT_EQ(state.extent.scale, 0);
  EXPECT_EQ(state.extent.ground.xMin, state.extent.ground.xMax);
  EXPECT_EQ(state.extent.ground.yMin, state.extent.ground.yMax);
}

/// Undoes the margin of a job that is fitted in width: what was covered.
double CoveredWidth(const PreviewExtent& found, double pictureWidth) {
  const double widening = (1 + 5 / pictureWidth) * (1 + 5 / pictureWidth);
  return (found.ground.xMax - found.ground.xMin) / widening;
}

TEST_F(Extent, ASectionLiesEastAndWestOfItsCentreAtYawZero) {
  job.Implement(0, {{10, 0, 0, 0}}).At(1, 0, 0);
  EXPECT_NEAR(CoveredWidth(Find(100, 100), 100), 10, kTolerance);
}

TEST_F(Extent, SectionOffsetsAreNotTurnedWithTheHeading) {
  // Heading east a section lies north and south, but still 30 m to the east.
  job.Implement(0, {{10, 30, 0, 0}}).At(1, 0, 0, std::numbers::pi / 2);
  const PreviewExtent found = Find(100, 100);
  EXPECT_NEAR(CoveredWidth(found, 100), 30, kTolerance);
  // East of the vehicle, for the margin is wider on that side.
  EXPECT_NEAR(found.ground.xMin, -30 * 0.05, kTolerance);
}

TEST_F(Extent, TheSameImplementWidensDifferentHeadingsDifferently) {
  job.Implement(0, {{10, 30, 0, 0}}).At(1, 0, 0, 0);
  EXPECT_NEAR(CoveredWidth(Find(100, 100), 100), 35, kTolerance);
}

TEST_F(Extent, SectionsWithoutPositiveWidthAreIgnored) {
  job.Implement(0, {{0, 500, 0, 0}, {-1, 0, 500, 0}, {10, 0, 0, 0}}).At(1, 0, 0);
  EXPECT_NEAR(CoveredWidth(Find(100, 100), 100), 10, kTolerance);
}

TEST_F(Extent, AnImplementCountsFromItsOwnTimeOnTheLastOneToo) {
  job.Implement(0, {{10, 0, 0, 0}}).Implement(2, {{40, 0, 0, 0}}).At(1, 0, 0).At(2, 0, 0);
  EXPECT_NEAR(CoveredWidth(Find(100, 100), 100), 40, kTolerance);
}

TEST_F(Extent, AnImplementOfLaterDoesNotCountBeforeItsTime) {
  job.Implement(0, {{10, 0, 0, 0}}).Implement(3, {{40, 0, 0, 0}}).At(1, 0, 0).At(2, 0, 0);
  EXPECT_NEAR(CoveredWidth(Find(100, 100), 100), 10, kTolerance);
}

TEST_F(Extent, TheReferenceLocationIsFollowed) {
  const double latitude = test::kLatitude + 0.001;
  job.builder.Reference({1, 2000}, latitude, test::kLongitude);
  job.At(1, 0, 0).At(2, 0, 0);
  const PreviewExtent found = Find(100, 100);
  const double covered = test::Origin(latitude).northing - origin.northing;
  EXPECT_NEAR(found.ground.yMin, -covered * 0.05, kTolerance);
  EXPECT_NEAR(found.scale, covered * 1.05 * 1.05 / 100, kTolerance);
}

TEST_F(Extent, RowsWithoutAPlaceDoNotCount) {
  job.builder.Execute(
      "INSERT INTO GpsDataTable (gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, type) "
      "VALUES (1, 500, 9e999, 1, 8192), (1, 2500, 1, -9e999, 8192)");
  job.At(1, 0, 0).At(2, 200, 100);
  ExpectExtent(Find(100, 100), -10, -60.25, 210.5, 160.25, 2.205);
}

TEST_F(Extent, KeepsTheJobsPathAndClearsThePicture) {
  job.At(1, 0, 0).At(2, 200, 100);
  Find(100, 100);
  EXPECT_EQ(state.jobPath, job.folder / "job.sqlite");
  EXPECT_THAT(job.picture.Take(), ElementsAre("Clear"));
}

TEST_F(Extent, CountsAndYieldsOncePerGpsRow) {
  job.At(1, 0, 0).At(2, 200, 100).At(3, 200, 100);
  Find(100, 100);
  EXPECT_EQ(job.host.rows, 3);
  EXPECT_EQ(job.host.yields, 3);
}

TEST_F(Extent, DoesNothingWithoutAPath) {
  FindPreviewExtent("", state, job.picture, job.host);
  EXPECT_THAT(job.picture.Take(), IsEmpty());
  EXPECT_EQ(state.jobPath, "job of before");
}

TEST_F(Extent, TakesTheStatesOwnPathAsArgument) {
  job.At(1, 0, 0).At(2, 200, 100);
  state.jobPath = job.builder.Finish();
  FindPreviewExtent(state.jobPath, state, job.picture, job.host);
  EXPECT_EQ(state.jobPath, job.folder / "job.sqlite");
}

/// The extent of the job before stays, but no job is there to draw.
void ExpectNoJob(const PreviewState& state, PreviewJob& job) {
  EXPECT_EQ(state.jobPath, "");
  EXPECT_EQ(state.extent, (PreviewExtent{{1, 2, 3, 4}, 5}));
  EXPECT_THAT(job.picture.Take(), ElementsAre("Clear"));
  EXPECT_THAT(job.host.messages, IsEmpty());
}

TEST_F(Extent, AJobThatCannotBeOpenedLeavesNoJob) {
  FindPreviewExtent(job.folder / "missing.sqlite", state, job.picture, job.host);
  ExpectNoJob(state, job);
}

TEST_F(Extent, AJobWithoutReferenceTableLeavesNoJob) {
  job.At(1, 0, 0).builder.Execute("DROP TABLE ReferenceLocationChangeTable");
  Find(100, 100);
  ExpectNoJob(state, job);
}

TEST_F(Extent, AJobWithoutReferenceLocationLeavesNoJob) {
  job.At(1, 0, 0).builder.Execute("DELETE FROM ReferenceLocationChangeTable");
  Find(100, 100);
  ExpectNoJob(state, job);
}

TEST_F(Extent, AJobWithoutGpsRowsKeepsTheExtentOfBefore) {
  jobstore::EpochRow row;  // without the bit that counts
  row.time = {1, 1000};
  row.east = 50;
  job.builder.Epoch(row);
  Find(100, 100);
  EXPECT_EQ(state.extent, (PreviewExtent{{1, 2, 3, 4}, 5}));
  EXPECT_EQ(state.jobPath, job.folder / "job.sqlite");
}

TEST_F(Extent, AJobWithoutGpsTableKeepsTheExtentOfBefore) {
  job.builder.Execute("DROP TABLE GpsDataTable");
  Find(100, 100);
  EXPECT_EQ(state.extent, (PreviewExtent{{1, 2, 3, 4}, 5}));
  EXPECT_EQ(state.jobPath, job.folder / "job.sqlite");
  EXPECT_THAT(job.host.messages, IsEmpty());
}

TEST_F(Extent, SectionsOfInfiniteWidthDoNotCount) {
  job.Implement(0, {{5, 0, 0, 0}, {10, 0, 0, 0}}).At(1, 0, 0);
  job.builder.Execute("UPDATE ImplChangeTable SET width0 = 9e999");
  EXPECT_NEAR(CoveredWidth(Find(100, 100), 100), 10, kTolerance);
}

TEST_F(Extent, AJobWithoutImplementTableIsItsPathAlone) {
  job.At(1, 0, 0).At(2, 200, 100).builder.Execute("DROP TABLE ImplChangeTable");
  ExpectExtent(Find(100, 100), -10, -60.25, 210.5, 160.25, 2.205);
}

TEST_F(Extent, APictureWithoutSizeGivesNoScale) {
  job.At(1, 0, 0).At(2, 200, 100);
  ExpectExtent(Find(0, 100), 0, 0, 200, 100, 0);
}

TEST_F(Extent, ACancelledPassLeavesNoJob) {
  job.At(1, 0, 0).At(2, 200, 100);
  job.host.cancelAt = 2;
  EXPECT_THROW(Find(100, 100), base::RunCancelled);
  ExpectNoJob(state, job);
}

}  // namespace
}  // namespace kestrin::preview
