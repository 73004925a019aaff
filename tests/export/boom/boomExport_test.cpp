#include "export/boom/boomExport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "geo/localOffsets.h"
#include "tests/export/boom/boomFixture.h"

namespace kestrin::boom {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class BoomExport : public test::BoomFixture {};

// ---------------------------------------------------------------- cross-lines

TEST_F(BoomExport, LineGoesFromTheRightEdgeOfTheSectionToTheLeftWhenHeadingNorth) {
  ReferenceAndDisc();
  builder_.Epoch(kStart, 10, 20, 0);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(1));
  EXPECT_THAT(Easts(set.shapes[0]), ElementsAre(12, 8));
  EXPECT_THAT(Norths(set.shapes[0]), ElementsAre(20, 20));
}

TEST_F(BoomExport, LineTurnsWithTheHeading) {
  ReferenceAndDisc();
  builder_.Epoch(kStart, 10, 20, std::numbers::pi / 2);
  const test::BoomSet set = ExportedSet();
  EXPECT_THAT(Easts(set.shapes.at(0)), ElementsAre(10, 10));
  EXPECT_THAT(Norths(set.shapes.at(0)), ElementsAre(18, 22));
}

TEST_F(BoomExport, SectionOffsetsAreNotTurnedWithTheHeading) {
  ReferenceOnly();
  builder_.Implement(kStart, "Disc", {{4, 3, -5, 9}});
  builder_.Epoch(kStart, 0, 0, std::numbers::pi / 2);
  const test::BoomSet set = ExportedSet();
  EXPECT_THAT(Easts(set.shapes.at(0)), ElementsAre(3, 3));
  EXPECT_THAT(Norths(set.shapes.at(0)), ElementsAre(-7, -3));
}

TEST_F(BoomExport, CoordinatesAreLongitudeAndLatitudeOfTheWorkingPlane) {
  ReferenceAndDisc();
  builder_.Epoch(kStart, 10, 20, 0);
  const geo::WorkingPlane plane(jobstore::ReferenceRow{{}, 47, -97.5});
  const geo::GeoPoint expected = plane.ToGeo(plane.At(12, 20));
  const test::BoomSet set = ExportedSet();
  // The reference location goes through radians and back.
  EXPECT_NEAR(set.shapes.at(0).points[0].longitude, expected.longitude, 1e-11);
  EXPECT_NEAR(set.shapes.at(0).points[0].latitude, expected.latitude, 1e-11);
}

TEST_F(BoomExport, EveryUsedSectionIsLaidInSlotOrderWhateverTheSwitchesSay) {
  ReferenceOnly();
  builder_.Implement(kStart, "Boom", {{2, -10, 0, 0}, {-1, 0, 0, 0}, {2, 10, 0, 0}});
  builder_.Epoch(kStart, 0, 0);
  jobstore::EpochRow off;
  off.time = After(1);
  off.type = test::kTakesPart;
  off.boomStatus = 0;
  builder_.Epoch(off);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(1));
  EXPECT_THAT(Easts(set.shapes[0]), ElementsAre(-9, -11, 11, 9, -9, -11, 11, 9));
  EXPECT_THAT(set.shapes[0].parts, ElementsAre(0, 2, 4, 6));
}

TEST_F(BoomExport, SectionOfWidthZeroGivesAPartOfTwoEqualPoints) {
  ReferenceOnly();
  builder_.Implement(kStart, "Wire", {{0, 1, 2, 0}});
  builder_.Epoch(kStart, 0, 0, 0.7);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes.at(0).points, SizeIs(2));
  EXPECT_EQ(set.shapes[0].points[0], set.shapes[0].points[1]);
}

TEST_F(BoomExport, ImplementTableWithoutSectionColumnsHasSixteenSectionsOfWidthZero) {
  ReferenceOnly();
  builder_.Execute("DROP TABLE ImplChangeTable");
  builder_.Execute(
      "CREATE TABLE ImplChangeTable (gpsWeek integer, gpsMsec integer, implName text)");
  builder_.Execute("INSERT INTO ImplChangeTable VALUES (1400, 1000, 'Old')");
  builder_.Epoch(kStart, 0, 0);
  const test::BoomSet set = ExportedSet();
  EXPECT_THAT(set.shapes.at(0).points, SizeIs(32));
  EXPECT_EQ(set.shapes[0].Implement(), "       Old");
}

TEST_F(BoomExport, RowsThatTakeNoPartAreInvisible) {
  ReferenceAndDisc();
  builder_.Epoch(kStart, 0, 0);
  jobstore::EpochRow hidden;
  hidden.time = After(1);
  hidden.type = jobstore::EpochRow::kNewStretch;
  builder_.Epoch(hidden);
  EXPECT_THAT(ExportedSet().shapes.at(0).points, SizeIs(2));
  EXPECT_EQ(host_.rows, 1);
}

// ---------------------------------------------------------------- reference locations

TEST_F(BoomExport, ReferenceChangeAppliesAtItsOwnTime) {
  ReferenceAndDisc();
  builder_.Reference(After(1), 47, -97.4);
  for (int second = 0; second < 2; ++second) builder_.Epoch(After(second), 0, 0);
  const std::vector<double> easts = Easts(ExportedSet().shapes.at(0));
  EXPECT_EQ(easts[0], 2);
  EXPECT_GT(easts[2], 7000);
}

TEST_F(BoomExport, ReferenceChangeLaterInAWeekIsTakenEarlyByTheWeeksFirstEpoch) {
  ReferenceAndDisc();
  builder_.Reference({1401, 500000}, 47, -97.4);
  builder_.Epoch(kStart, 0, 0);
  builder_.Epoch({1401, 100}, 0, 0);
  const std::vector<double> easts = Easts(ExportedSet().shapes.at(0));
  EXPECT_EQ(easts[0], 2);
  EXPECT_GT(easts[2], 7000);
}

TEST_F(BoomExport, ReferenceInAnotherZoneKeepsTheFirstZone) {
  builder_.Reference(kStart, 47, -96.5).Reference(After(1), 47, -95.5);
  builder_.Implement(kStart, "Disc", {{4, 0, 0, 0}});
  builder_.Epoch(After(1), 0, 0);
  const std::vector<geo::GeoPoint> points = ExportedSet().shapes.at(0).points;
  // On the first zone's grid, which there stands askew to north.
  EXPECT_GT(std::abs(points[0].latitude - points[1].latitude), 1e-7);
  EXPECT_NEAR(points[0].longitude, -95.5, 1e-4);
}

// ---------------------------------------------------------------- records and periods

TEST_F(BoomExport, RatesEqualAfterRoundingStayOneRecord) {
  ReferenceAndDisc();
  builder_.ActualRates(kStart, 12.344).ActualRates(After(1), 12.336);
  for (int second = 0; second < 2; ++second) builder_.Epoch(After(second), 0, 0);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(1));
  EXPECT_EQ(set.shapes[0].ActualRate(0), "     12.34");
}

TEST_F(BoomExport, ActualRatesRoundTiesToEven) {
  ReferenceAndDisc();
  builder_.ActualRates(kStart, 0.125, 0.375, 2.5);
  builder_.Epoch(kStart, 0, 0);
  const test::BoomSet set = ExportedSet();
  EXPECT_EQ(set.shapes.at(0).ActualRate(0), "      0.12");
  EXPECT_EQ(set.shapes[0].ActualRate(1), "      0.38");
  EXPECT_EQ(set.shapes[0].ActualRate(2), "       2.5");
}

TEST_F(BoomExport, FirstActualRatesHoldBeforeTheirTimeAndTheNextFromItsOwn) {
  ReferenceAndDisc();
  builder_.ActualRates(After(1), 1).ActualRates(After(2), 2).ActualRates(After(3), 3);
  for (int second : {0, 1, 2, 3}) builder_.Epoch(After(second), 10 * second, 0);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(3));
  EXPECT_THAT(Easts(set.shapes[0]), ElementsAre(2, -2, 12, 8));
  EXPECT_THAT(Easts(set.shapes[1]), ElementsAre(22, 18));
  EXPECT_EQ(set.shapes[2].ActualRate(0), "         3");
}

TEST_F(BoomExport, RatesThatReturnWithinAPeriodTakeUpItsEarlierRecordShuffled) {
  ReferenceAndDisc();
  builder_.Epoch(kStart, 0, 0);
  builder_.Products(After(1), "Urea");
  const std::vector<double> rates{5, 5, 6, 5};
  for (int i = 0; i < 4; ++i) {
    builder_.ActualRates(After(i + 1), rates[static_cast<std::size_t>(i)]);
    builder_.Epoch(After(i + 1), 10 * (i + 1), 0);
  }
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(3));
  EXPECT_THAT(Easts(set.shapes[0]), ElementsAre(2, -2));
  // A copy of the line before, its own first, and the new one in place of its last.
  EXPECT_THAT(Easts(set.shapes[1]), ElementsAre(2, -2, 12, 8, 42, 38));
  EXPECT_THAT(Easts(set.shapes[2]), ElementsAre(32, 28));
}

TEST_F(BoomExport, RatesThatReturnInAnotherPeriodMakeANewRecord) {
  ReferenceAndDisc();
  builder_.Products(After(2), "Urea");
  for (int i = 0; i < 4; ++i) {
    builder_.ActualRates(After(i), i % 2 + 1);
    builder_.Epoch(After(i), 0, 0);
  }
  EXPECT_THAT(ExportedSet().shapes, SizeIs(4));
}

TEST_F(BoomExport, TakingUpTheFirstRecordEndsWithASubscriptErrorThatNamesTheEpochAndNoFiles) {
  LeaveOldSet();
  ReferenceAndDisc();
  for (int i = 0; i < 3; ++i) {
    builder_.ActualRates(After(i), i % 2 + 1);
    builder_.Epoch(After(i), 0, 0);
  }
  ExpectSubscriptError(
      "at epoch 3 (week 1400, millisecond 3000) the job returns to its first rates, and a boom "
      "set cannot hold that");
  ExpectNothingWritten();
  EXPECT_THAT(host_.messages, IsEmpty());
}

TEST_F(BoomExport, TakingUpARecordBehindEmptyOnesOnlyEndsWithASubscriptErrorToo) {
  ReferenceOnly();
  builder_.Implement(kStart, "None", {}).Implement(After(1), "Disc", {{4, 0, 0, 0}});
  for (int i = 0; i < 4; ++i) {
    builder_.ActualRates(After(i), i % 2 + 1);
    builder_.Epoch(After(i), 0, 0);
  }
  ExpectSubscriptError(
      "at epoch 4 (week 1400, millisecond 4000) the job returns to its first rates, and a boom "
      "set cannot hold that");
  ExpectNothingWritten();
}

TEST_F(BoomExport, ImplementWithoutUsedSectionEndsWithTwoEmptyRecordsAPeriod) {
  ReferenceOnly();
  builder_.Implement(kStart, "None", {});
  for (int i = 0; i < 5; ++i) builder_.Epoch(After(i), 0, 0);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(2));
  for (const test::BoomShape& shape : set.shapes) {
    EXPECT_THAT(shape.parts, IsEmpty());
    EXPECT_THAT(shape.points, IsEmpty());
    EXPECT_EQ(shape.box.xMin, 0);
    EXPECT_EQ(shape.box.yMax, 0);
    EXPECT_EQ(shape.Implement(), "      None");
  }
}

TEST_F(BoomExport, EmptyRecordsLeaveTheFilesBoxAlone) {
  ReferenceOnly();
  builder_.Implement(kStart, "None", {}).Implement(After(1), "Disc", {{4, 0, 0, 0}});
  for (int i = 0; i < 2; ++i) builder_.Epoch(After(i), 0, 0);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(2));
  EXPECT_LT(set.box.xMax, -97);
  EXPECT_GT(set.box.yMin, 46);
}

TEST_F(BoomExport, BoxesKeepOverwrittenPoints) {
  ReferenceAndDisc();
  builder_.Epoch(kStart, 0, 0);
  builder_.Products(After(1), "Urea");
  const std::vector<double> easts{900, 20, 30};
  for (int i = 0; i < 3; ++i) {
    builder_.ActualRates(After(i + 1), i % 2 + 1);
    builder_.Epoch(After(i + 1), easts[static_cast<std::size_t>(i)], 0);
  }
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(3));
  EXPECT_THAT(Easts(set.shapes[1]), ElementsAre(2, -2, 32, 28));
  const geo::WorkingPlane plane(jobstore::ReferenceRow{{}, 47, -97.5});
  EXPECT_NEAR(set.shapes[1].box.xMax, plane.ToGeo(plane.At(902, 0)).longitude, 1e-9);
  EXPECT_NEAR(set.box.xMax, plane.ToGeo(plane.At(902, 0)).longitude, 1e-9);
  // The copied line was laid into another record.
  EXPECT_NEAR(set.shapes[1].box.xMin, plane.ToGeo(plane.At(28, 0)).longitude, 1e-9);
}

TEST_F(BoomExport, PeriodIntoALaterWeekLosesEpochsOfItsOwnWeek) {
  ReferenceAndDisc();
  builder_.Products({1401, 5000}, "Urea");
  builder_.Epoch({1400, 4000}, 1, 0).Epoch({1400, 5000}, 2, 0).Epoch({1400, 9000}, 3, 0);
  builder_.Epoch({1401, 4000}, 4, 0).Epoch({1401, 5000}, 5, 0);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(2));
  EXPECT_THAT(Easts(set.shapes[0]), ElementsAre(3, -1, 6, 2));
  EXPECT_THAT(Easts(set.shapes[1]), ElementsAre(7, 3));
  EXPECT_EQ(host_.rows, 3);
}

TEST_F(BoomExport, EpochsBeforeAnyImplementAreRecordsWithoutPoints) {
  ReferenceOnly();
  builder_.DesiredRates(kStart, 7).Implement(After(1), "Disc", {{4, 0, 0, 0}});
  for (int i = 0; i < 2; ++i) builder_.Epoch(After(i), 0, 0);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(2));
  EXPECT_THAT(set.shapes[0].points, IsEmpty());
  EXPECT_EQ(set.shapes[0].Implement(), std::string(10, ' '));
  EXPECT_THAT(set.shapes[1].points, SizeIs(2));
}

TEST_F(BoomExport, TwoDesiredRateRowsOfOneTimeMakeARecordOfTheSecond) {
  ReferenceAndDisc();
  builder_.DesiredRates(kStart, 7).DesiredRates(kStart, 8);
  builder_.Epoch(kStart, 0, 0);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(1));
  EXPECT_EQ(set.shapes[0].TargetRate(0), "         8");
  EXPECT_THAT(set.shapes[0].points, SizeIs(2));
}

}  // namespace
}  // namespace kestrin::boom
