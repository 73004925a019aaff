#include "geo/localOffsets.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/geo/exactMercator.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::geo {
namespace {

using test::ExactMercator;
using test::JobBuilder;

/// A job's reference locations, and where the origin stands at a time.
class Offsets : public ::testing::Test {
 protected:
  JobBuilder& Builder() { return builder_; }

  void Open() { job_.emplace(builder_.Finish()); }
  jobstore::Job& OpenJob() { return *job_; }

  static void ExpectAt(UtmPoint point, double latitude, double longitude, int zone) {
    const auto exact = ExactMercator::Project(latitude, longitude, zone);
    // The locations make the way through the job's radians.
    EXPECT_NEAR(point.easting, exact.easting, 1e-6);
    EXPECT_NEAR(point.northing, exact.northing, 1e-6);
  }

 private:
  test::TempFolder folder_;
  JobBuilder builder_{folder_ / "job.sqlite"};
  std::optional<jobstore::Job> job_;
};

TEST_F(Offsets, AreNoneWithoutAReferenceLocation) {
  Open();
  const LocalOffsets<jobstore::References> offsets(OpenJob());
  EXPECT_TRUE(offsets.Prepared());
  EXPECT_FALSE(offsets.HasReference());
}

TEST_F(Offsets, AreNoneWithoutTheTable) {
  Builder().Execute("Drop Table ReferenceLocationChangeTable");
  Open();
  const LocalOffsets<jobstore::References> offsets(OpenJob());
  EXPECT_FALSE(offsets.Prepared());
  EXPECT_LT(offsets.Result(), 0);
  EXPECT_FALSE(offsets.HasReference());
}

TEST_F(Offsets, AddMetresInThePlane) {
  Builder().Reference({350, 1000}, 40, -97.5);
  Open();
  LocalOffsets<jobstore::References> offsets(OpenJob());
  ASSERT_TRUE(offsets.HasReference());
  offsets.AdvanceTo({350, 1000});
  ExpectAt(offsets.Plane().At(0, 0), 40, -97.5, 14);

  const UtmPoint origin = offsets.Plane().At(0, 0);
  EXPECT_EQ(offsets.Plane().At(12.5, -7.25),
            (UtmPoint{origin.easting + 12.5, origin.northing - 7.25}));
}

TEST_F(Offsets, ComeBackToDegreesInTheSamePlane) {
  Builder().Reference({350, 1000}, 40, -97.5);
  Open();
  const LocalOffsets<jobstore::References> offsets(OpenJob());
  const auto exact = ExactMercator::Project(40.01, -97.52, 14);
  const GeoPoint point = offsets.Plane().ToGeo({exact.easting, exact.northing});
  EXPECT_NEAR(point.latitude, 40.01, 1e-11);
  EXPECT_NEAR(point.longitude, -97.52, 1e-11);
}

TEST_F(Offsets, CountFromTheFirstLocationAlsoBeforeItsTime) {
  Builder().Reference({350, 5000}, 40, -97.5).Reference({350, 9000}, 41, -97.5);
  Open();
  LocalOffsets<jobstore::References> offsets(OpenJob());
  offsets.AdvanceTo({1, 0});
  ExpectAt(offsets.Plane().At(0, 0), 40, -97.5, 14);
}

TEST_F(Offsets, TakeAChangeAtExactlyItsOwnTime) {
  Builder().Reference({350, 0}, 40, -97.5).Reference({350, 5000}, 41, -97.6);
  Open();
  LocalOffsets<jobstore::References> offsets(OpenJob());
  offsets.AdvanceTo({350, 4999});
  ExpectAt(offsets.Plane().At(0, 0), 40, -97.5, 14);
  offsets.AdvanceTo({350, 5000});
  ExpectAt(offsets.Plane().At(0, 0), 41, -97.6, 14);
}

TEST_F(Offsets, CompareWeeksBeforeMilliseconds) {
  Builder().Reference({350, 0}, 40, -97.5).Reference({351, 10}, 41, -97.6);
  Open();
  LocalOffsets<jobstore::References> offsets(OpenJob());
  offsets.AdvanceTo({350, 604799999});
  ExpectAt(offsets.Plane().At(0, 0), 40, -97.5, 14);
  offsets.AdvanceTo({352, 0});
  ExpectAt(offsets.Plane().At(0, 0), 41, -97.6, 14);
}

TEST_F(Offsets, TakeTheLastOfSeveralChangesBetweenTwoRows) {
  Builder()
      .Reference({350, 0}, 40, -97.5)
      .Reference({350, 10}, 41, -97.5)
      .Reference({350, 20}, 42, -97.5)
      .Reference({350, 30}, 43, -97.5)
      .Reference({350, 90}, 44, -97.5);
  Open();
  LocalOffsets<jobstore::References> offsets(OpenJob());
  offsets.AdvanceTo({350, 5});
  ExpectAt(offsets.Plane().At(0, 0), 40, -97.5, 14);
  offsets.AdvanceTo({350, 40});
  ExpectAt(offsets.Plane().At(0, 0), 43, -97.5, 14);
}

TEST_F(Offsets, ProjectEachLocationPassedInTurn) {
  // The second location cannot be projected: the third is reached all the same.
  Builder()
      .Reference({350, 0}, 40, -97.5)
      .Reference({350, 10}, 95, -97.5)
      .Reference({350, 20}, 42, -97.5);
  Open();
  LocalOffsets<jobstore::References> offsets(OpenJob());
  offsets.AdvanceTo({350, 20});
  ExpectAt(offsets.Plane().At(0, 0), 42, -97.5, 14);
}

TEST_F(Offsets, KeepTheZoneOfTheFirstLocation) {
  Builder().Reference({350, 0}, 40, -96.001).Reference({350, 10}, 40, -95.999);
  Open();
  LocalOffsets<jobstore::References> offsets(OpenJob());
  ASSERT_EQ(UtmZoneOf(40, -95.999), 15);
  offsets.AdvanceTo({350, 10});
  ExpectAt(offsets.Plane().At(0, 0), 40, -95.999, 14);
}

TEST_F(Offsets, ReadTheLocationsInTimeOrder) {
  Builder()
      .Reference({351, 0}, 42, -97.5)
      .Reference({350, 900}, 41, -97.5)
      .Reference({350, 20}, 40, -97.5);
  Open();
  LocalOffsets<jobstore::ReferencesWithAltitude> offsets(OpenJob());
  ExpectAt(offsets.Plane().At(0, 0), 40, -97.5, 14);
  offsets.AdvanceTo({350, 900});
  ExpectAt(offsets.Plane().At(0, 0), 41, -97.5, 14);
}

TEST(WorkingPlane, PassesOnWhatAFailedProjectionLeft) {
  jobstore::ReferenceRow beyondThePole;
  beyondThePole.latitude = 95;
  beyondThePole.longitude = -97.5;
  const WorkingPlane plane(beyondThePole);
  EXPECT_EQ(plane.At(0, 0), (UtmPoint{-97.5 * 0.0174532925199433, 95 * 0.0174532925199433}));
}

TEST(WorkingPlane, PassesPointsOnWhereThereIsNoZone) {
  jobstore::ReferenceRow dateLine;
  dateLine.latitude = 40;
  dateLine.longitude = 180;
  const WorkingPlane plane(dateLine);
  EXPECT_EQ(plane.At(0, 0), (UtmPoint{180, 40}));
  const GeoPoint point = plane.ToGeo(plane.At(3, 4));
  EXPECT_EQ(point.longitude, 183);
  EXPECT_EQ(point.latitude, 44);
}

}  // namespace
}  // namespace kestrin::geo
