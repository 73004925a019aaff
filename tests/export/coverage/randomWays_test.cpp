#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "export/coverage/polygonBuilder.h"
#include "tests/export/coverage/literalCoverage.h"

namespace kestrin::coverage {
namespace {

using Rings = std::vector<std::vector<geo::UtmPoint>>;
using Rows = std::vector<test::LiteralRow>;

Rings RingsOf(const Rows& rows) {
  Rings rings;
  PolygonBuilder builder([&](const Ring& ring) {
    if (ring.IsPolygon()) rings.push_back(ring.Points());
  });
  for (const auto& [row, begins] : rows) builder.Add(row, begins);
  builder.Finish();
  return rings;
}

bool AnyCrossesItself(const Rings& rings) {
  return std::any_of(rings.begin(), rings.end(), test::RingCrossesItself);
}

/// Straight ways, curves and steps of every size, marks here and there, the
/// implement changing its width, rows at one place.
Rows RandomJob(unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> unit(-1, 1);
  const double bend = 0.15 * unit(random) * unit(random);
  const double step = std::exp(1.5 * unit(random));
  double width = 1 + 8 * std::fabs(unit(random));
  double yaw = 4 * unit(random);
  geo::UtmPoint at{5e5, 5e6};
  Rows rows;
  const int count = 4 + static_cast<int>(random() % 150);
  for (int i = 0; i < count; ++i) {
    if (random() % 50 == 0) width += 1;
    if (random() % 20 != 0) {
      yaw += bend * unit(random);
      at = {at.easting + step * std::sin(yaw), at.northing + step * std::cos(yaw)};
    }
    rows.push_back({SwathRow::Of(at, yaw, width), random() % 40 == 0});
  }
  return rows;
}

TEST(RandomJobs, RingsThatCrossNothingAreTheLiteralOnesToTheBit) {
  int compared = 0;
  for (unsigned seed = 0; seed < 1000; ++seed) {
    const Rows rows = RandomJob(seed);
    const Rings literal = test::LiteralPolygons(rows).Rings();
    if (literal.empty() || AnyCrossesItself(literal)) continue;
    ++compared;
    ASSERT_TRUE(RingsOf(rows) == literal) << "seed " << seed;
  }
  EXPECT_GT(compared, 500);
}

/// Rows of a vehicle that stands and whose position and yaw jitter, driving before and
/// after.
Rows JitterJob(unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<double> noise(0, 0.02);
  Rows rows;
  for (int i = 0; i < 300; ++i) {
    const double along = i < 50 ? i : i < 250 ? 50 : i - 200;
    const bool stands = i >= 50 && i < 250;
    const geo::UtmPoint at{5e5 + (stands ? noise(random) : 0), 5e6 + along + noise(random)};
    rows.push_back({SwathRow::Of(at, stands ? noise(random) * 5 : 0, 12), false});
  }
  return rows;
}

/// There and back and there again, now on the very same way and now beside it.
Rows ReversingJob(unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<double> noise(0, seed % 2 == 0 ? 0 : 0.05);
  Rows rows;
  double along = 0;
  for (int i = 0; i < 400; ++i) {
    along += i % 100 < 70 ? 0.5 : -0.7;
    rows.push_back({SwathRow::Of({5e5 + noise(random), 5e6 + along}, noise(random), 9), false});
  }
  return rows;
}

void ExpectClosed(const Rings& rings) {
  EXPECT_FALSE(rings.empty());
  for (const auto& ring : rings) {
    ASSERT_GE(ring.size(), 4U);
    EXPECT_EQ(ring.front(), ring.back());
    for (std::size_t i = 1; i < ring.size(); ++i) ASSERT_NE(ring[i - 1], ring[i]);
    EXPECT_TRUE(std::isfinite(PolygonArea(ring)));
  }
}

TEST(RandomJobs, JitterAtStandstillLeavesClosedRings) {
  for (unsigned seed = 0; seed < 200; ++seed) ExpectClosed(RingsOf(JitterJob(seed)));
}

TEST(RandomJobs, ReversingVehicleLeavesClosedRings) {
  for (unsigned seed = 0; seed < 200; ++seed) ExpectClosed(RingsOf(ReversingJob(seed)));
}

TEST(RandomJobs, PolygonsAreCutAsStatedAlsoWhereTheVehicleStandsOrReverses) {
  for (unsigned seed = 0; seed < 100; ++seed) {
    for (const Rows& rows : {JitterJob(seed), ReversingJob(seed)}) {
      EXPECT_EQ(RingsOf(rows).size(), test::LiteralPolygons(rows).Rings().size()) << seed;
    }
  }
}

}  // namespace
}  // namespace kestrin::coverage
