#include "export/ground/unfold.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/export/ground/drawnLines.h"

namespace kestrin::ground {
namespace {

using test::ClearanceOf;
using test::Closed;
using test::SquareMetresIn;

/// A field of 10 by 10 metres whose west side has a loop of 0.25 square metres at each of
/// some northings: up, a metre out to the west, and back through itself.
Line WithLoops(const std::vector<double>& northings) {
  Line line{{0, 0}};
  for (const double north : northings) {
    line.insert(
        line.end(),
        {{0, north + 0.5}, {-1, north + 0.5}, {1, north - 0.5}, {1, north + 1}, {0, north + 1}});
  }
  line.insert(line.end(), {{0, 10}, {10, 10}, {10, 0}});
  return Closed(line);
}

/// Whether the lines are the same but for where they begin.
bool AreSame(Line one, const Line& other) {
  if (one.size() != other.size()) return false;
  one.pop_back();
  std::rotate(one.begin(), std::ranges::find(one, other.front()), one.end());
  return Closed(one) == other;
}

TEST(Unfold, SimpleLineStaysButForItsBeginning) {
  const Line line = Closed({{0, 0}, {0, 3}, {0, 10}, {4, 8}, {10, 10}, {10, 0}});
  double squareMetres = 5;
  EXPECT_TRUE(AreSame(Unfold(line, squareMetres), line));
  EXPECT_EQ(squareMetres, 5);
}

TEST(Unfold, CutsASmallLoopOffWhereItCloses) {
  const Line line = WithLoops({5});
  ASSERT_EQ(ClearanceOf(line), Clearance::kNone);
  double squareMetres = 1;
  const Line unfolded = Unfold(line, squareMetres);
  EXPECT_NE(ClearanceOf(unfolded), Clearance::kNone);
  EXPECT_NE(std::ranges::find(unfolded, geo::UtmPoint{0, 5}), unfolded.end());
  EXPECT_EQ(std::ranges::find(unfolded, geo::UtmPoint{-1, 5.5}), unfolded.end());
  EXPECT_DOUBLE_EQ(squareMetres, 0.75);
}

TEST(Unfold, LoopOfMoreGroundThanIsLeftStays) {
  const Line line = WithLoops({5});
  double squareMetres = 0.25;
  EXPECT_TRUE(AreSame(Unfold(line, squareMetres), line));
  EXPECT_EQ(squareMetres, 0.25);
}

TEST(Unfold, LoopsShareWhatMayBeCutOff) {
  double enough = 0.8;
  EXPECT_NE(ClearanceOf(Unfold(WithLoops({2, 5, 8}), enough)), Clearance::kNone);
  EXPECT_NEAR(enough, 0.05, 1e-12);
  double tooLittle = 0.6;
  EXPECT_EQ(ClearanceOf(Unfold(WithLoops({2, 5, 8}), tooLittle)), Clearance::kNone);
  EXPECT_NEAR(tooLittle, 0.1, 1e-12);
}

TEST(Unfold, LoopAboutTheBeginningIsCutOffToo) {
  const Line line = WithLoops({5});
  for (std::size_t first = 0; first + 1 < line.size(); ++first) {
    Line turned(line.begin(), line.end() - 1);
    std::rotate(turned.begin(), turned.begin() + static_cast<std::ptrdiff_t>(first), turned.end());
    double squareMetres = 1;
    const Line unfolded = Unfold(Closed(turned), squareMetres);
    EXPECT_NE(ClearanceOf(unfolded), Clearance::kNone) << first;
    EXPECT_DOUBLE_EQ(squareMetres, 0.75) << first;
    EXPECT_NEAR(SquareMetresIn(unfolded), 98.75, 1e-9) << first;
  }
}

TEST(Unfold, SpikeIsTakenOutForNothing) {
  const Line line = Closed({{0, 0}, {0, 5}, {-3, 5}, {-1, 5}, {0, 5}, {0, 10}, {10, 10}, {10, 0}});
  for (std::size_t first = 0; first + 1 < line.size(); ++first) {
    Line turned(line.begin(), line.end() - 1);
    std::rotate(turned.begin(), turned.begin() + static_cast<std::ptrdiff_t>(first), turned.end());
    double squareMetres = 1e-9;
    const Line unfolded = Unfold(Closed(turned), squareMetres);
    EXPECT_NE(ClearanceOf(unfolded), Clearance::kNone) << first;
    EXPECT_DOUBLE_EQ(SquareMetresIn(unfolded), 100) << first;
    EXPECT_EQ(squareMetres, 1e-9) << first;
  }
}

/// The field with a loop of so many small steps out to the west.
Line WithSteps(int steps) {
  Line line{{0, 0}, {0, 5.5}};
  for (int i = 1; i <= steps; ++i) line.push_back({-1.0 * i / steps, 5.5});
  line.insert(line.end(), {{1, 4.5}, {1, 6}, {0, 6}, {0, 10}, {10, 10}, {10, 0}});
  return Closed(line);
}

TEST(Unfold, LoopOfManyPointsIsCutOffAndOfVeryManyStays) {
  double squareMetres = 1;
  EXPECT_NE(ClearanceOf(Unfold(WithSteps(200), squareMetres)), Clearance::kNone);
  EXPECT_NEAR(squareMetres, 0.75, 1e-9);
  EXPECT_EQ(ClearanceOf(Unfold(WithSteps(400), squareMetres)), Clearance::kNone);
  EXPECT_NEAR(squareMetres, 0.75, 1e-9);
}

TEST(Unfold, GroundOfALoopIsCountedWhicheverWayItRuns) {
  // A figure eight to the west, four square metres either way round.
  const Line line = Closed({{0, 0},
                            {0, 7},
                            {-4, 3},
                            {-4, 7},
                            {-1, 4},
                            {1, 2},
                            {1, 8},
                            {0, 8},
                            {0, 10},
                            {10, 10},
                            {10, 0}});
  double squareMetres = 1;
  EXPECT_TRUE(AreSame(Unfold(line, squareMetres), line));
  EXPECT_EQ(squareMetres, 1);
}

}  // namespace
}  // namespace kestrin::ground
