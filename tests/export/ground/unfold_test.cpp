#include "export/ground/unfold.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "tests/export/ground/drawnLines.h"
#include "tools/sample/randomness.h"

namespace kestrin::ground {
namespace {

using test::ClearanceOf;
using test::Closed;
using test::SquareMetresIn;

/// With nobody to yield to.
Line Unfold(const Line& closed, double& squareMetres) {
  base::LoopYield nobody([] {});
  return ground::Unfold(closed, squareMetres, nobody);
}

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

// ---------------------------------------------------------------- by its rules alone

/// Draws on to a point, unless the line is there.
void DrawTo(Line& line, geo::UtmPoint point) {
  if (line.empty() || line.back() != point) line.push_back(point);
}

/// Takes the newest corner out where the line runs straight back from it.
bool TakeSpikeOut(Line& line) {
  if (line.size() < 3) return false;
  const auto newest = line.end() - 3;
  const geo::UtmPoint to = line.back();
  if (SideOf(newest[0], newest[1], to) != 0 || Dot(newest[1], newest[0], to) <= 0) return false;
  line.resize(line.size() - 2);
  DrawTo(line, to);
  return true;
}

/// Takes out the loop that the newest segment closes first: every segment before it compared.
bool TakeLoopOut(Line& line, double& squareMetres) {
  if (line.size() < 4) return false;
  const geo::UtmPoint from = line[line.size() - 2];
  const geo::UtmPoint to = line.back();
  std::vector<std::size_t> crossed;
  for (std::size_t i = 0; i + 3 < line.size(); ++i) {
    if (SegmentsCross(from, to, line[i], line[i + 1])) crossed.push_back(i);
  }
  if (crossed.empty()) return false;
  const auto meeting = [&](std::size_t i) { return MeetingPoint(from, to, line[i], line[i + 1]); };
  const std::size_t first = *std::ranges::min_element(
      crossed, {}, [&](std::size_t i) { return SquareDistance(from, meeting(i)); });
  const geo::UtmPoint where = meeting(first);
  double twice = 0;
  for (std::size_t i = first + 1; i + 2 < line.size(); ++i) {
    twice += std::fabs(Cross(where, line[i], line[i + 1]));
  }
  if (twice / 2 >= squareMetres) return false;
  squareMetres -= twice / 2;
  line.resize(first + 1);
  DrawTo(line, where);
  DrawTo(line, to);
  return true;
}

Line UnfoldedByTheRules(Line closed, double& squareMetres) {
  for (int turn = 0; turn < 2 && closed.size() >= 4; ++turn) {
    const auto middle = static_cast<std::ptrdiff_t>(closed.size() / 2);
    closed.pop_back();
    std::rotate(closed.begin(), closed.begin() + middle, closed.end());
    closed.push_back(closed.front());
    Line drawn;
    for (const geo::UtmPoint& point : closed) {
      DrawTo(drawn, point);
      while (TakeSpikeOut(drawn) || TakeLoopOut(drawn, squareMetres)) {
      }
    }
    closed = drawn;
  }
  return closed;
}

/// Both must give the same line, from the same point on, and leave the same ground. Counts
/// the lines that lose some.
void ExpectAsByTheRules(const Line& closed, double squareMetres, int run, int& cut) {
  double left = squareMetres;
  const Line expected = UnfoldedByTheRules(closed, left);
  double leftHere = squareMetres;
  ASSERT_EQ(Unfold(closed, leftHere), expected) << run;
  EXPECT_EQ(leftHere, left) << run;
  if (left < squareMetres) ++cut;
}

TEST(Unfold, OfFewPointsOnAGridIsAsByTheRules) {
  sample::Randomness chance(5);
  int cut = 0;
  for (int run = 0; run < 20000; ++run) {
    Line line;
    for (std::uint64_t i = 3 + chance.Next() % 12; i > 0; --i) {
      line.push_back(
          {static_cast<double>(chance.Next() % 5), static_cast<double>(chance.Next() % 5)});
    }
    ASSERT_NO_FATAL_FAILURE(ExpectAsByTheRules(Closed(line), run % 3 == 0 ? 100 : 4, run, cut));
  }
  EXPECT_GT(cut, 2000);
}

TEST(Unfold, OfALongWayThatWaversIsAsByTheRules) {
  // Round about a field, with the boom's end unsteady where nothing begins or closes: there a loop
  // could have begun further back than is looked.
  constexpr int kPoints = 600;
  sample::Randomness chance(6);
  int cut = 0;
  for (int run = 0; run < 100; ++run) {
    Line line;
    for (int i = 0; i < kPoints; ++i) {
      const double angle = 2 * std::numbers::pi * i / kPoints;
      const bool steady = i % (kPoints / 2) < 30 || i % (kPoints / 2) > 270;
      const double off = steady ? 0 : 1.2;
      line.push_back({100 * std::cos(angle) + off * chance.Noise(),
                      100 * std::sin(angle) + off * chance.Noise()});
    }
    ASSERT_NO_FATAL_FAILURE(ExpectAsByTheRules(Closed(line), 200, run, cut));
  }
  EXPECT_EQ(cut, 100);
}

}  // namespace
}  // namespace kestrin::ground
