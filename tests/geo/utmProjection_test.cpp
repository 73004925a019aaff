#include "geo/utmProjection.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <thread>
#include <vector>

#include "geo/modProj4.h"

namespace kestrin::geo {
namespace {

using Limits = std::numeric_limits<double>;

/// What GeoToUtm and UtmToGeo leave in their arguments.
UtmPoint Forward(GeoPoint point, std::int16_t zone) {
  GeoToUtm(point.latitude, point.longitude, zone);
  return {point.longitude, point.latitude};
}
GeoPoint Inverse(UtmPoint point, std::int16_t zone) {
  UtmToGeo(point.northing, point.easting, zone);
  return {point.easting, point.northing};
}

void ExpectSame(double one, double other) {
  EXPECT_TRUE(one == other || (one != one && other != other)) << one << " and " << other;
}

TEST(UtmProjection, GivesTheNumbersOfSingleConversionsBitByBit) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> latitude(-89, 89);
  std::uniform_real_distribution<double> away(-12, 12);
  for (const std::int16_t zone : {std::int16_t{1}, std::int16_t{14}, std::int16_t{60}}) {
    const UtmProjection projection(zone);
    for (int i = 0; i < 200; ++i) {
      const GeoPoint point{6.0 * zone - 183 + away(random), latitude(random)};
      const UtmPoint utm = projection.ToUtm(point);
      EXPECT_EQ(utm, Forward(point, zone));
      EXPECT_EQ(projection.ToGeo(utm), Inverse(utm, zone));
    }
  }
}

TEST(UtmProjection, LeavesWhatSingleConversionsLeaveWhenTheyFail) {
  for (const std::int16_t zone : {std::int16_t{14}, std::int16_t{0}, std::int16_t{61}}) {
    const UtmProjection projection(zone);
    for (const double bad :
         {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), 1e20, 91.0}) {
      for (const GeoPoint point : {GeoPoint{-97.5, bad}, GeoPoint{bad, 40}, GeoPoint{bad, bad}}) {
        const UtmPoint utm = projection.ToUtm(point);
        ExpectSame(utm.easting, Forward(point, zone).easting);
        ExpectSame(utm.northing, Forward(point, zone).northing);
      }
      for (const UtmPoint point : {UtmPoint{bad, 4.4e6}, UtmPoint{5e5, bad}, UtmPoint{bad, bad}}) {
        const GeoPoint geo = projection.ToGeo(point);
        ExpectSame(geo.longitude, Inverse(point, zone).longitude);
        ExpectSame(geo.latitude, Inverse(point, zone).latitude);
      }
    }
  }
}

TEST(UtmProjection, ConvertsAfterAFailureAsBefore) {
  const UtmProjection projection(14);
  const GeoPoint before = projection.ToGeo({5e5, 4.4e6});
  projection.ToGeo({Limits::infinity(), Limits::quiet_NaN()});
  projection.ToUtm({0, 100});
  EXPECT_EQ(projection.ToGeo({5e5, 4.4e6}), before);
}

TEST(UtmProjection, ConvertsARangeAsPointByPoint) {
  const UtmProjection projection(14);
  const std::vector<UtmPoint> from{{4e5, 5e6}, {Limits::infinity(), 5e6}, {4.1e5, 5.1e6}};
  std::vector<GeoPoint> to(from.size());
  projection.ToGeo(from, to);
  for (std::size_t i = 0; i < from.size(); ++i) EXPECT_EQ(to[i], projection.ToGeo(from[i]));
}

TEST(UtmProjection, ServesSeveralThreadsWithOneEach) {
  std::vector<GeoPoint> last(4);
  std::vector<std::thread> threads;
  for (GeoPoint& point : last) {
    threads.emplace_back([&point] {
      const UtmProjection projection(14);
      for (int i = 0; i < 20000; ++i) point = projection.ToGeo({5e5 + i, 4.4e6});
    });
  }
  for (std::thread& thread : threads) thread.join();
  const GeoPoint alone = UtmProjection(14).ToGeo({5e5 + 19999, 4.4e6});
  EXPECT_EQ(last, std::vector<GeoPoint>(4, alone));
}

}  // namespace
}  // namespace kestrin::geo
