#include "tests/export/coverage/ringJudge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrin::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Points = std::vector<geo::UtmPoint>;

constexpr geo::UtmPoint kOrigin{500000, 4500000};
constexpr double kSquareMetresAnAcre = 1 / 0.000247105381;

geo::UtmPoint At(double east, double north) {
  return {kOrigin.easting + east, kOrigin.northing + north};
}

LiteralRow Row(double east, double north, double yaw = 0) {
  return {coverage::SwathRow::Of(At(east, north), yaw, 10), false};
}

/// 30 m due north, 10 m wide.
const std::vector<LiteralRow> kNorth{Row(0, 0), Row(0, 10), Row(0, 20), Row(0, 30)};
const Points kNorthRing{At(-5, 0), At(-5, 10), At(-5, 20), At(-5, 30), At(5, 30),
                        At(5, 20), At(5, 10),  At(5, 0),   At(-5, 0)};

/// To where it cannot be driven without crossing itself: up, and back down beside it.
const std::vector<LiteralRow> kUpAndBack{Row(0, 0), Row(0, 10), Row(0, 20), Row(2, 10), Row(4, 0)};
const Points kUpAndBackRing{At(-5, 0), At(-5, 20), At(5, 20), At(9, 0), At(-5, 0)};

class TheJudge : public testing::Test {
 protected:
  WrittenRing Written(const Points& metres) const {
    WrittenRing ring{{}, 0, 1e-6, metres};
    ring.degrees.resize(metres.size());
    projection_.ToGeo(metres, ring.degrees);
    double twice = 0;
    for (std::size_t i = 0; i + 1 < metres.size(); ++i) {
      const geo::UtmPoint a{metres[i].easting - kOrigin.easting,
                            metres[i].northing - kOrigin.northing};
      const geo::UtmPoint b{metres[i + 1].easting - kOrigin.easting,
                            metres[i + 1].northing - kOrigin.northing};
      twice += a.easting * b.northing - b.easting * a.northing;
    }
    ring.acres = std::abs(twice) / 2 / kSquareMetresAnAcre;
    return ring;
  }

  Verdict Judge(const std::vector<LiteralRow>& rows, const WrittenRing& ring) {
    return judge_.Judge("a job", rows, {ring});
  }

  geo::UtmProjection projection_{14};
  RingJudge judge_{projection_};
};

TEST_F(TheJudge, FindsNothingInTheOutlineOfAStraightWay) {
  const Verdict verdict = Judge(kNorth, Written(kNorthRing));
  EXPECT_THAT(verdict.faults, IsEmpty());
  EXPECT_EQ(verdict.rings, 1);
  EXPECT_NEAR(verdict.all.covered, 300, 1e-6);
  EXPECT_EQ(verdict.all.wrong, 0);
  EXPECT_EQ(verdict.changed.covered, 0);
}

TEST_F(TheJudge, MeasuresTheGroundOfEveryRingWhenAsked) {
  Points shorter = kNorthRing;
  for (geo::UtmPoint& point : shorter)
    point.northing = std::min(point.northing, At(0, 27).northing);
  RingJudge judge(projection_, Asked::kAllGround);
  EXPECT_LT(judge.Judge("a job", kNorth, {Written(kNorthRing)}).all.wrong, 1e-4);
  EXPECT_NEAR(judge.Judge("a job", kNorth, {Written(shorter)}).all.Share(), 0.1, 1e-4);
}

TEST_F(TheJudge, WantsTheOutlineItselfWhereItCrossesNothing) {
  const Points corners{At(-5, 0), At(-5, 30), At(5, 30), At(5, 0), At(-5, 0)};
  EXPECT_THAT(Judge(kNorth, Written(corners)).faults, ElementsAre(HasSubstr("is another")));
}

TEST_F(TheJudge, WantsARingForEachPolygon) {
  EXPECT_THAT(judge_.Judge("a job", kNorth, {}).faults,
              ElementsAre("a job: 0 rings of 1 polygons"));
}

TEST_F(TheJudge, FindsTheOutlineThatCrossesItselfUnfit) {
  const Points outline = LiteralPolygons(kUpAndBack).Rings().at(0);
  EXPECT_THAT(Judge(kUpAndBack, Written(outline)).faults,
              ElementsAre(HasSubstr("in degrees: Self-intersection")));
}

TEST_F(TheJudge, TakesAnotherFitRingInItsPlaceAndMeasuresItsGround) {
  const Verdict verdict = Judge(kUpAndBack, Written(kUpAndBackRing));
  EXPECT_THAT(verdict.faults, IsEmpty());
  EXPECT_NEAR(verdict.changed.covered, 240, 1e-6);
  EXPECT_LT(verdict.changed.Share(), 1e-6);
  Points shorter = kUpAndBackRing;
  shorter[1].northing -= 2;
  shorter[2].northing -= 2;
  EXPECT_GT(Judge(kUpAndBack, Written(shorter)).changed.Share(), 0.05);
}

TEST_F(TheJudge, FindsWhatIsWrongWithARing) {
  const auto faults = [&](const Points& points) {
    return Judge(kUpAndBack, Written(points)).faults;
  };
  Points open = kUpAndBackRing;
  open.pop_back();
  EXPECT_THAT(faults(open), ElementsAre(HasSubstr("not closed")));
  Points doubled = kUpAndBackRing;
  doubled.insert(doubled.begin() + 1, doubled[1]);
  EXPECT_THAT(faults(doubled), ElementsAre(HasSubstr("two equal points in a row")));
  // Twice at the same corner.
  Points touching = kUpAndBackRing;
  touching.insert(touching.begin() + 2, At(9, 0));
  EXPECT_THAT(faults(touching), ElementsAre(HasSubstr("in degrees: ")));
}

TEST_F(TheJudge, WantsForwardDrivenRingsClockwise) {
  // Round to the right until the edges cross.
  std::vector<LiteralRow> rows;
  for (int i = 0; i < 20; ++i) {
    const double angle = i * 0.35;
    rows.push_back(Row(-(8 + i * 0.1) * std::cos(angle), (8 + i * 0.1) * std::sin(angle), angle));
  }
  Points ring = kUpAndBackRing;
  std::reverse(ring.begin(), ring.end());
  EXPECT_THAT(Judge(rows, Written(ring)).faults, ElementsAre(HasSubstr("counter-clockwise")));
}

TEST_F(TheJudge, WantsTheAcresOfTheRing) {
  WrittenRing ring = Written(kNorthRing);
  ring.acres *= 1.01;
  EXPECT_THAT(Judge(kNorth, ring).faults, ElementsAre(HasSubstr("acres, and is")));
}

TEST_F(TheJudge, CountsABowTieAsItsTwoTriangles) {
  // On the spot by a right angle: two right triangles with sides of 5 m.
  LiteralPolygon turned;
  for (const double yaw : {0.0, std::numbers::pi / 2}) {
    turned.left.push_back(Row(0, 0, yaw).row.left);
    turned.right.push_back(Row(0, 0, yaw).row.right);
  }
  const Points square{At(-5, -5), At(-5, 5), At(5, 5), At(5, -5), At(-5, -5)};
  EXPECT_NEAR(judge_.Difference(judge_.Ground(turned), square), 100 - 25, 1e-6);
}

TEST_F(TheJudge, AsksNoGroundOfWidthsBeyondEveryMachine) {
  std::vector<LiteralRow> rows;
  for (const double north : {0.0, 10.0, 20.0, 30.0}) {
    rows.push_back({coverage::SwathRow::Of(At(0, north), 0, 101), false});
  }
  const Verdict verdict = Judge(rows, Written(LiteralPolygons(rows).Rings().at(0)));
  EXPECT_EQ(verdict.rings, 1);
  EXPECT_EQ(verdict.all.covered, 0);
}

TEST_F(TheJudge, ExemptsPolygonsWithoutGround) {
  std::vector<LiteralRow> rows;
  for (const double north : {0.0, 10.0, 20.0, 5.0}) {
    rows.push_back({coverage::SwathRow::Of(At(0, north), 0, 0), false});
  }
  const Verdict verdict = Judge(rows, Written(LiteralPolygons(rows).Rings().at(0)));
  EXPECT_THAT(verdict.faults, IsEmpty());
  EXPECT_EQ(verdict.rings, 0);
}

}  // namespace
}  // namespace kestrin::test
