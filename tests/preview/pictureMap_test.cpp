#include "preview/pictureMap.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/recordingPicture.h"

namespace kestrin::preview {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Two metres a unit, 200 by 200 m from 1000, 5000.
PictureMap TwoMetres() { return {{{1000, 5000, 1200, 5200}, 2}, test::RecordingPicture(100, 100)}; }

TEST(PictureMap, NorthIsUp) {
  EXPECT_EQ(TwoMetres().At({1000, 5200}), (PicturePoint{0, 0}));
  EXPECT_EQ(TwoMetres().At({1200, 5000}), (PicturePoint{100, 100}));
  EXPECT_EQ(TwoMetres().At({1050, 5160}), (PicturePoint{25, 20}));
}

TEST(PictureMap, RoundsHalvesToTheEvenUnit) {
  EXPECT_EQ(TwoMetres().At({1001, 5199}), (PicturePoint{0, 0}));
  EXPECT_EQ(TwoMetres().At({1003, 5197}), (PicturePoint{2, 2}));
  EXPECT_EQ(TwoMetres().At({1005, 5195}), (PicturePoint{2, 2}));
  EXPECT_EQ(TwoMetres().At({999, 5201}), (PicturePoint{0, 0}));
  EXPECT_EQ(TwoMetres().At({997, 5203}), (PicturePoint{-2, -2}));
}

TEST(PictureMap, PlacesPointsOutsideTheExtentToo) {
  EXPECT_EQ(TwoMetres().At({900, 5400}), (PicturePoint{-50, -100}));
}

TEST(PictureMap, HasNoPlaceForWhatIsNoNumber) {
  EXPECT_FALSE(TwoMetres().At({kNaN, 5100}));
  EXPECT_FALSE(TwoMetres().At({1100, kNaN}));
  EXPECT_FALSE(TwoMetres().At({kInfinity, 5100}));
  EXPECT_FALSE(TwoMetres().At({1100, -kInfinity}));
}

TEST(PictureMap, LeavesAPlaceAsItWasWhereThereIsNone) {
  for (const geo::UtmPoint none : {geo::UtmPoint{1100, kNaN}, {kNaN, 5100}, {1100, 1e12}}) {
    PicturePoint place{7, 8};
    EXPECT_FALSE(TwoMetres().Find(none, place));
    EXPECT_EQ(place, (PicturePoint{7, 8}));
  }
}

TEST(PictureMap, HasNoPlaceBeyond32Bits) {
  EXPECT_FALSE(TwoMetres().At({1e12, 5100}));
  EXPECT_FALSE(TwoMetres().At({1100, 1e300}));
}

TEST(PictureMap, ScaleZeroIsACentimetreAUnitAboutTheMiddle) {
  const PictureMap map({{10, 20, 10, 20}, 0}, test::RecordingPicture(100, 60));
  EXPECT_EQ(map.At({10, 20}), (PicturePoint{50, 30}));
  EXPECT_EQ(map.At({10.5, 20.25}), (PicturePoint{100, 5}));
}

TEST(PictureMap, CoversTheExtentWithItsBorders) {
  const PictureMap map = TwoMetres();
  EXPECT_TRUE(map.Covers({1000, 5000}));
  EXPECT_TRUE(map.Covers({1200, 5200}));
  EXPECT_FALSE(map.Covers({999.999, 5100}));
  EXPECT_FALSE(map.Covers({1200.001, 5100}));
  EXPECT_FALSE(map.Covers({1100, 4999.999}));
  EXPECT_FALSE(map.Covers({1100, 5200.001}));
}

}  // namespace
}  // namespace kestrin::preview
