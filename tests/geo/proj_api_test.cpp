#include "geo/proj_api.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <limits>
#include <memory>

#include "tests/support/setting.h"
#include "tests/support/tempFolder.h"

namespace kestrin::geo {
namespace {

constexpr const char* kGeographic = "+proj=latlong +datum=NAD83";
constexpr const char* kUtm14 = "+proj=utm +zone=14 +datum=NAD83 +nodefs";
constexpr double kRadians = 0.0174532925199433;

struct FreeHandle {
  void operator()(ProjHandle* handle) const { pjFree(handle); }
};
using Handle = std::unique_ptr<ProjHandle, FreeHandle>;

TEST(ProjApi, MakesTheTwoDefinitions) {
  EXPECT_NE(Handle(pjInitPlus(kGeographic)), nullptr);
  EXPECT_NE(Handle(pjInitPlus(kUtm14)), nullptr);
  EXPECT_NE(Handle(pjInitPlus("+proj=utm +zone=60 +datum=NAD83")), nullptr);
}

TEST(ProjApi, MakesNothingOfWhatIsNoDefinition) {
  for (const char* text :
       {"", " ", "+proj", "+proj=", "+datum=NAD83", "+proj=utm +zone=0 +datum=NAD83",
        "+proj=utm +zone=61 +datum=NAD83", "+proj=utm +zone=-14 +datum=NAD83", "EPSG:26914",
        "+init=epsg:26914", "+proj=none +datum=NAD83"}) {
    EXPECT_EQ(pjInitPlus(text), nullptr) << text;
  }
  EXPECT_EQ(pjInitPlus(nullptr), nullptr);
}

/// Two handles for the length of a test.
struct Pair {
  Handle geographic{pjInitPlus(kGeographic)};
  Handle utm{pjInitPlus(kUtm14)};
};

std::int32_t TransformOne(const Handle& from, const Handle& to, double& x, double& y) {
  double z = 1;
  return pjTransform(from.get(), to.get(), 1, 1, &x, &y, &z);
}

TEST(ProjApi, ConvertsPointsApartByTheOffset) {
  const Pair pair;
  std::array<double, 6> points = {-97.5 * kRadians, 40 * kRadians, 7,
                                  -98.5 * kRadians, 41 * kRadians, 8};
  ASSERT_EQ(
      pjTransform(pair.geographic.get(), pair.utm.get(), 2, 3, &points[0], &points[1], &points[2]),
      0);
  double x = -98.5 * kRadians;
  double y = 41 * kRadians;
  ASSERT_EQ(TransformOne(pair.geographic, pair.utm, x, y), 0);
  EXPECT_EQ(points[3], x);
  EXPECT_EQ(points[4], y);
  EXPECT_EQ(points[2], 7);
  EXPECT_EQ(points[5], 8);
}

TEST(ProjApi, LeavesThePointThatFailsAndThoseAfterIt) {
  const Pair pair;
  std::array<double, 3> x = {-1.7, -1.7, -1.7};
  std::array<double, 3> y = {0.7, 2.0, 0.7};
  EXPECT_NE(pjTransform(pair.geographic.get(), pair.utm.get(), 3, 1, x.data(), y.data(), nullptr),
            0);
  EXPECT_GT(y[0], 4e6);
  EXPECT_EQ(x[1], -1.7);
  EXPECT_EQ(y[1], 2.0);
  EXPECT_EQ(x[2], -1.7);
  EXPECT_EQ(y[2], 0.7);
}

TEST(ProjApi, FailsOutsideTheDomain) {
  const Pair pair;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  const double huge = std::numeric_limits<double>::max();
  for (const double bad : {nan, infinity, -infinity, huge, -huge, 1e20}) {
    SCOPED_TRACE(bad);
    double x = bad;
    double y = 0.7;
    EXPECT_NE(TransformOne(pair.geographic, pair.utm, x, y), 0);
    EXPECT_EQ(y, 0.7);
    y = 4.4e6;
    EXPECT_NE(TransformOne(pair.utm, pair.geographic, x, y), 0);
    EXPECT_EQ(y, 4.4e6);
  }
}

TEST(ProjApi, NothingMovesWithinOneSystem) {
  const Pair pair;
  double x = 1.25;
  double y = 0.5;
  ASSERT_EQ(TransformOne(pair.geographic, pair.geographic, x, y), 0);
  EXPECT_EQ(x, 1.25);
  EXPECT_EQ(y, 0.5);
  x = 3.5;  // not wrapped around
  ASSERT_EQ(TransformOne(pair.geographic, pair.geographic, x, y), 0);
  EXPECT_EQ(x, 3.5);
  x = 600000;
  y = 4e6;
  ASSERT_EQ(TransformOne(pair.utm, pair.utm, x, y), 0);
  EXPECT_NEAR(x, 600000, 1e-6);
  EXPECT_NEAR(y, 4e6, 1e-6);
}

TEST(ProjApi, NoHandleIsAnError) {
  const Pair pair;
  const Handle none;
  double x = 0.1;
  double y = 0.2;
  EXPECT_NE(TransformOne(none, pair.utm, x, y), 0);
  EXPECT_NE(TransformOne(pair.geographic, none, x, y), 0);
  EXPECT_EQ(x, 0.1);
  EXPECT_EQ(y, 0.2);
  pjFree(nullptr);
}

TEST(ProjApi, HandlesOfOneDefinitionShareNothing) {
  Handle first(pjInitPlus(kUtm14));
  const Pair pair;
  first.reset();
  double x = -1.7;
  double y = 0.7;
  EXPECT_EQ(TransformOne(pair.geographic, pair.utm, x, y), 0);
}

struct Result {
  std::int32_t code = -1;
  double x = -1.7;
  double y = 0.7;
  friend bool operator==(const Result&, const Result&) = default;
};

/// One failure and one conversion.
Result ConvertAnew() {
  const Pair pair;
  double x = 0;
  double y = 50;
  TransformOne(pair.geographic, pair.utm, x, y);
  Result result;
  result.code = TransformOne(pair.geographic, pair.utm, result.x, result.y);
  return result;
}

TEST(ProjApi, PrintsNothing) {
  const test::Setting debug("PROJ_DEBUG", "5");
  const test::Setting data("PROJ_DATA", "/nonexistent");
  ::testing::internal::CaptureStderr();
  ::testing::internal::CaptureStdout();
  ConvertAnew();
  EXPECT_EQ(pjInitPlus("+proj=utm +zone=99 +datum=NAD83"), nullptr);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(ProjApi, NeedsNoDatabaseAndNoConfiguration) {
  const Result before = ConvertAnew();
  ASSERT_EQ(before.code, 0);
  const test::Setting data("PROJ_DATA", "/nonexistent");
  const test::Setting lib("PROJ_LIB", "/nonexistent");
  EXPECT_EQ(ConvertAnew(), before);
}

TEST(ProjApi, AConfigurationOfTheUsersChangesNothing) {
  const Result before = ConvertAnew();
  const test::TempFolder folder;
  std::ofstream(folder / "proj.ini") << "[general]\ntmerc_default_algo = evenden_snyder\n";
  const test::Setting data("PROJ_DATA", folder.Path().string());
  const test::Setting lib("PROJ_LIB", folder.Path().string());
  EXPECT_EQ(ConvertAnew(), before);
}

}  // namespace
}  // namespace kestrin::geo
