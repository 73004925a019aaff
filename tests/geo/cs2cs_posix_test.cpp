#include <gtest/gtest.h>

#include <fstream>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

#include "geo/modProj4.h"
#include "tests/support/tempFolder.h"
#include "tests/support/toolOutput.h"

/// The same conversions by PROJ's own command on GRS80 definitions, where it is
/// installed.

namespace kestrin::geo {
namespace {

struct Point {
  double x;
  double y;
};

constexpr const char* kGrs80Degrees = "+proj=longlat +ellps=GRS80 +no_defs";

std::string UtmOnGrs80(int zone) {
  return "+proj=utm +zone=" + std::to_string(zone) + " +ellps=GRS80 +no_defs";
}

std::vector<Point> Cs2cs(const std::string& from, const std::string& to,
                         const std::vector<Point>& points) {
  const test::TempFolder folder;
  std::ofstream input(folder / "points");
  input << std::setprecision(17);
  for (const Point& point : points) input << point.x << ' ' << point.y << '\n';
  input.close();
  std::istringstream output(
      test::Output("cs2cs -f %.14g " + from + " +to " + to + " " + (folder / "points")));
  std::vector<Point> results;
  for (Point point{}; output >> point.x >> point.y;) {
    results.push_back(point);
    output.ignore(1000, '\n');
  }
  return results;
}

class Cs2csAgreement : public ::testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    if (!test::Installed("cs2cs")) GTEST_SKIP() << "no cs2cs here";
    for (double latitude = -84; latitude <= 84; latitude += 3.5) {
      for (const double offset : {-3.0, -1.25, 0.0, 0.5, 3.0}) {
        points_.push_back({6.0 * GetParam() - 183 + offset, latitude});
      }
    }
  }

  const std::vector<Point>& Points() const { return points_; }
  std::int16_t Zone() const { return static_cast<std::int16_t>(GetParam()); }

 private:
  std::vector<Point> points_;
};

TEST_P(Cs2csAgreement, ForwardWithinAMicrometre) {
  const auto expected = Cs2cs(kGrs80Degrees, UtmOnGrs80(Zone()), Points());
  ASSERT_EQ(expected.size(), Points().size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    auto [x, y] = Points()[i];
    ASSERT_EQ(GeoToUtm(y, x, Zone()), 0);
    EXPECT_NEAR(x, expected[i].x, 1e-6);
    EXPECT_NEAR(y, expected[i].y, 1e-6);
  }
}

TEST_P(Cs2csAgreement, InverseWithinTheEleventhDigit) {
  const auto metres = Cs2cs(kGrs80Degrees, UtmOnGrs80(Zone()), Points());
  const auto expected = Cs2cs(UtmOnGrs80(Zone()), kGrs80Degrees, metres);
  ASSERT_EQ(expected.size(), Points().size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    auto [x, y] = metres[i];
    ASSERT_EQ(UtmToGeo(y, x, Zone()), 0);
    EXPECT_NEAR(x, expected[i].x, 1e-11);
    EXPECT_NEAR(y, expected[i].y, 1e-11);
  }
}

INSTANTIATE_TEST_SUITE_P(Zones, Cs2csAgreement, ::testing::Values(2, 14, 31, 33, 59));

}  // namespace
}  // namespace kestrin::geo
