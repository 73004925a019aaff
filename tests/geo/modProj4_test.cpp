#include "geo/modProj4.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <thread>
#include <vector>

#include "geo/proj_api.h"
#include "tests/geo/exactMercator.h"

namespace kestrin::geo {
namespace {

using test::ExactMercator;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// What the projection must agree to with an exact one: metres, degrees.
constexpr double kMetres = 1e-6;
constexpr double kDegrees = 1e-11;

TEST(UtmZoneOf, FollowsTheLongitude) {
  EXPECT_EQ(UtmZoneOf(40, -97.5), 14);
  EXPECT_EQ(UtmZoneOf(40, -96.0000001), 14);
  EXPECT_EQ(UtmZoneOf(40, -96), 15);
  EXPECT_EQ(UtmZoneOf(-35, 149), 55);
  EXPECT_EQ(UtmZoneOf(0, 0), 31);
  EXPECT_EQ(UtmZoneOf(0, -0.0000001), 30);
}

TEST(UtmZoneOf, DoesNotWrapAround) {
  EXPECT_EQ(UtmZoneOf(40, 180), 61);
  EXPECT_EQ(UtmZoneOf(40, -180), 1);
  EXPECT_EQ(UtmZoneOf(40, 179.9999), 60);
  EXPECT_EQ(UtmZoneOf(40, -180.1), 0);
  EXPECT_EQ(UtmZoneOf(40, -187), -1);
}

TEST(UtmZoneOf, WidensZone32OnTheNorwegianCoast) {
  EXPECT_EQ(UtmZoneOf(60, 5), 32);
  EXPECT_EQ(UtmZoneOf(56, 3), 32);
  EXPECT_EQ(UtmZoneOf(63.999, 11.999), 32);
  EXPECT_EQ(UtmZoneOf(63.999, 3), 32);
  EXPECT_EQ(UtmZoneOf(55.999, 5), 31);
  EXPECT_EQ(UtmZoneOf(64, 5), 31);
  EXPECT_EQ(UtmZoneOf(60, 2.999), 31);
  EXPECT_EQ(UtmZoneOf(60, 12), 33);
}

TEST(UtmZoneOf, LeavesOutZones32To36AroundSvalbard) {
  EXPECT_EQ(UtmZoneOf(80, 10), 33);
  EXPECT_EQ(UtmZoneOf(72, 0), 31);
  EXPECT_EQ(UtmZoneOf(72, 8.999), 31);
  EXPECT_EQ(UtmZoneOf(72, 9), 33);
  EXPECT_EQ(UtmZoneOf(72, 20.999), 33);
  EXPECT_EQ(UtmZoneOf(72, 21), 35);
  EXPECT_EQ(UtmZoneOf(72, 32.999), 35);
  EXPECT_EQ(UtmZoneOf(72, 33), 37);
  EXPECT_EQ(UtmZoneOf(72, 41.999), 37);
  EXPECT_EQ(UtmZoneOf(72, 42), 38);
  EXPECT_EQ(UtmZoneOf(71.999, 10), 32);
  EXPECT_EQ(UtmZoneOf(72, -0.001), 30);
}

TEST(UtmZoneOf, SetsNoUpperLatitudeForSvalbard) {
  EXPECT_EQ(UtmZoneOf(84.5, 10), 33);
  EXPECT_EQ(UtmZoneOf(90, 35), 37);
  EXPECT_EQ(UtmZoneOf(200, 22), 35);
}

TEST(UtmZoneOf, GivesNoZoneWhereThereIsNone) {
  EXPECT_EQ(UtmZoneOf(40, kNan), 0);
  EXPECT_EQ(UtmZoneOf(40, kInfinity), 0);
  EXPECT_EQ(UtmZoneOf(40, -kInfinity), 0);
  EXPECT_EQ(UtmZoneOf(40, 1e300), 0);
  EXPECT_EQ(UtmZoneOf(40, 196416), 32767);
  EXPECT_EQ(UtmZoneOf(40, 196422), 0);
  EXPECT_EQ(UtmZoneOf(40, -196794), -32768);
  EXPECT_EQ(UtmZoneOf(40, -196801), 0);
  EXPECT_EQ(UtmZoneOf(kNan, -97.5), 14);
}

void ExpectAgreement(double latitude, double longitude, int zone) {
  SCOPED_TRACE(::testing::Message() << latitude << " " << longitude << " zone " << zone);
  const auto exact = ExactMercator::Project(latitude, longitude, zone);
  double y = latitude;
  double x = longitude;
  ASSERT_EQ(GeoToUtm(y, x, static_cast<std::int16_t>(zone)), 0);
  EXPECT_NEAR(x, exact.easting, kMetres);
  EXPECT_NEAR(y, exact.northing, kMetres);

  y = exact.northing;
  x = exact.easting;
  ASSERT_EQ(UtmToGeo(y, x, static_cast<std::int16_t>(zone)), 0);
  // The exact point comes rounded to a double, a nanometre where northings are
  // largest; beside a pole that is many degrees.
  const double meridianWidth = std::cos(latitude * 0.0174532925199433);
  EXPECT_NEAR(x, longitude, std::max(kDegrees, 4e-14 / meridianWidth));
  EXPECT_NEAR(y, latitude, kDegrees);
}

TEST(Projection, AgreesWithAnExactOneAcrossAWholeZone) {
  for (double latitude = -84; latitude <= 84; latitude += 1.75) {
    for (double offset = -3; offset <= 3; offset += 0.25) {
      ExpectAgreement(latitude, -99 + offset, 14);
    }
  }
}

TEST(Projection, AgreesWithAnExactOneInEveryZone) {
  for (int zone = 1; zone <= 60; ++zone) {
    const double central = 6.0 * zone - 183;
    for (const double offset : {-2.999, -1.1, 0.0, 2.3, 2.999}) {
      ExpectAgreement(48.137, central + offset, zone);
      ExpectAgreement(-33.9, central + offset, zone);
    }
  }
}

TEST(Projection, AgreesWithAnExactOneTowardsThePoles) {
  for (const double latitude : {84.0, 86.5, 89.0, 89.9, 89.999}) {
    for (const double offset : {-3.0, -0.5, 0.0, 1.75, 3.0}) {
      ExpectAgreement(latitude, 15 + offset, 33);
      ExpectAgreement(-latitude, 15 + offset, 33);
    }
  }
}

TEST(Projection, AgreesWithAnExactOneBeyondTheZoneBorder) {
  for (const double latitude : {0.0, 12.5, 45.0, 61.0, 75.0}) {
    for (const double offset : {-9.0, -6.0, -3.0001, 3.0001, 6.0, 9.0}) {
      ExpectAgreement(latitude, -99 + offset, 14);
    }
  }
}

TEST(Projection, PutsTheCentralMeridianAt500000) {
  double y = 0;
  double x = -99;
  ASSERT_EQ(GeoToUtm(y, x, 14), 0);
  EXPECT_NEAR(x, 500000, 1e-8);
  EXPECT_NEAR(y, 0, 1e-8);
}

TEST(Projection, GivesSouthernNorthingsBelowZero) {
  double y = -35;
  double x = 149;
  ASSERT_EQ(GeoToUtm(y, x, 55), 0);
  EXPECT_LT(y, -3.8e6);
  ASSERT_EQ(UtmToGeo(y, x, 55), 0);
  EXPECT_NEAR(y, -35, kDegrees);
}

TEST(Projection, LeavesPointsUnchangedWithoutAZone) {
  for (const int zone : {0, 61, -1, 32767, -32768}) {
    SCOPED_TRACE(zone);
    double y = 40;
    double x = -97.5;
    EXPECT_EQ(GeoToUtm(y, x, static_cast<std::int16_t>(zone)), -1);
    EXPECT_EQ(y, 40);
    EXPECT_EQ(x, -97.5);
    EXPECT_EQ(UtmToGeo(y, x, static_cast<std::int16_t>(zone)), -1);
    EXPECT_EQ(y, 40);
    EXPECT_EQ(x, -97.5);
  }
}

TEST(Projection, LeavesRadiansWhenTheForwardConversionFails) {
  double y = 91;
  double x = -97.5;
  EXPECT_EQ(GeoToUtm(y, x, 14), -1);
  EXPECT_EQ(y, 91 * 0.0174532925199433);
  EXPECT_EQ(x, -97.5 * 0.0174532925199433);
}

TEST(Projection, LeavesMetresWhenTheInverseConversionFails) {
  double y = 4.4e6;
  double x = 1e9;
  EXPECT_EQ(UtmToGeo(y, x, 14), -1);
  EXPECT_EQ(y, 4.4e6);
  EXPECT_EQ(x, 1e9);
}

TEST(Projection, FailsOnWhatIsNoNumber) {
  for (const double none : {kNan, kInfinity, -kInfinity}) {
    SCOPED_TRACE(none);
    double y = 40;
    double x = none;
    EXPECT_EQ(GeoToUtm(y, x, 14), -1);
    EXPECT_EQ(y, 40 * 0.0174532925199433);
    y = none;
    x = 500000;
    EXPECT_EQ(UtmToGeo(y, x, 14), -1);
    EXPECT_EQ(x, 500000);
  }
}

TEST(Projection, ConvertsAfterAFailureAsBefore) {
  double y = 100;
  double x = -97.5;
  ASSERT_EQ(GeoToUtm(y, x, 14), -1);
  ExpectAgreement(40, -97.5, 14);
}

TEST(Projection, ConvertsInSeveralThreadsAtOnce) {
  std::vector<int> wrong(4, 0);
  std::vector<std::thread> threads;
  for (std::size_t t = 0; t < wrong.size(); ++t) {
    threads.emplace_back([&wrong, t] {
      for (int i = 0; i < 400; ++i) {
        const auto zone = static_cast<std::int16_t>(1 + (i + static_cast<int>(t) * 15) % 60);
        const double longitude = 6.0 * zone - 183 + 1.5;
        double y = 47.25;
        double x = longitude;
        const bool converted = GeoToUtm(y, x, zone) == 0 && UtmToGeo(y, x, zone) == 0;
        if (!converted || std::abs(x - longitude) > kDegrees || std::abs(y - 47.25) > kDegrees) {
          ++wrong[t];
        }
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, std::vector<int>(4, 0));
}

}  // namespace
}  // namespace kestrin::geo
