#include "export/net/weave.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "export/ground/planeGeometry.h"
#include "tests/support/recordingHost.h"

namespace kestrin::net {
namespace {

std::vector<Chain> Woven(std::vector<Chain> chains) {
  test::RecordingHost host;
  return WovenLines(std::move(chains), host);
}

std::vector<double> AreasOf(const std::vector<Chain>& lines) {
  std::vector<double> areas;
  for (const Chain& line : lines) {
    EXPECT_EQ(line.points.front(), line.points.back());
    areas.push_back(ground::SignedArea(line.points));
  }
  std::ranges::sort(areas);
  return areas;
}

TEST(Weave, ChainsBecomeOneLineWhateverTheirOrder) {
  const std::vector<Chain> woven =
      Woven({{7, {{2, 2}, {2, 0}, {0, 0}}}, {7, {{0, 0}, {0, 2}}}, {7, {{0, 2}, {2, 2}}}});
  ASSERT_EQ(woven.size(), 1U);
  EXPECT_EQ(woven[0].piece, 7U);
  EXPECT_EQ(AreasOf(woven), std::vector<double>{-4});
}

TEST(Weave, PiecesThatTouchInAPointStayApart) {
  // Two squares of ground, clockwise, with (2, 2) in common.
  const std::vector<Chain> woven = Woven({{0, {{0, 0}, {0, 2}, {2, 2}}},
                                          {0, {{2, 2}, {2, 0}, {0, 0}}},
                                          {1, {{4, 4}, {4, 2}, {2, 2}}},
                                          {1, {{2, 2}, {2, 4}, {4, 4}}}});
  EXPECT_EQ(AreasOf(woven), (std::vector<double>{-4, -4}));
}

TEST(Weave, HoleThatTouchesTheOutlineIsTakenOffIt) {
  // A square of 4 with a triangle cut out at its lower left corner.
  const std::vector<Chain> woven =
      Woven({{0, {{0, 0}, {0, 4}, {4, 4}, {4, 0}, {0, 0}}}, {0, {{0, 0}, {3, 1}, {1, 3}, {0, 0}}}});
  EXPECT_EQ(AreasOf(woven), (std::vector<double>{-16, 4}));
}

TEST(Weave, ChainsThatDoNotCloseAreAnError) {
  EXPECT_THROW(Woven({{0, {{0, 0}, {0, 4}}}}), ground::GeometryError);
}

}  // namespace
}  // namespace kestrin::net
