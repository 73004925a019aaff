#include "export/net/netExport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "tests/export/net/literalNet.h"
#include "tests/export/net/netFixture.h"
#include "tests/support/faultyFileSystem.h"

namespace kestrin::net {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr double kAcre = 1 / 0.000247105381;  // in square metres

class NetExport : public test::NetFixture {
 protected:
  /// One section in the middle.
  void Wide(double metres) { builder_.Implement({1, 0}, "a", {{metres, 0, 0, 0}}); }
  /// Two sections of 5 m side by side: bit 0 is the left one.
  void TwoSections() { builder_.Implement({1, 0}, "a", {{5, 0, -2.5, 0}, {5, 0, 2.5, 0}}); }

  static double Acres(const test::ReadSet& set, std::size_t record = 0) {
    return std::stod(set.rows[record][1]);
  }
  static double Gross(const test::ReadSet& set) { return std::stod(set.rows[0][2]); }
  static double Overlap(const test::ReadSet& set) { return std::stod(set.rows[0][3]); }
  void ExpectAcres(double squareMetres, const test::ReadSet& set) {
    EXPECT_NEAR(Acres(set), squareMetres / kAcre, 0.006);
  }
};

TEST_F(NetExport, OnePassIsARectangleThatRunsClockwise) {
  Wide(10);
  Drive({0, 0}, {0, 300});
  const test::ReadSet set = Exported();
  EXPECT_EQ(set.type, 5);
  ASSERT_EQ(set.records.size(), 1U);
  EXPECT_EQ(set.records[0].parts, std::vector<std::int32_t>{0});
  EXPECT_EQ(set.records[0].points.front(), set.records[0].points.back());
  const std::vector<test::ReadField> fields{
      {"ID", 'N', 8, 0}, {"ACRES", 'N', 10, 2}, {"GROSS", 'N', 10, 2}, {"OVERLAP", 'N', 10, 2}};
  EXPECT_EQ(set.fields, fields);
  // 3,000 square metres.
  EXPECT_THAT(set.rows,
              ElementsAre(ElementsAre("       0", "      0.74", "      0.74", "         0")));
}

TEST_F(NetExport, GroundOfTwoPassesThatOverlapCountsOnce) {
  Wide(10);
  Drive({0, 0}, {0, 300});
  Drive({6, 300}, {6, 0});
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.records.size(), 1U);
  ExpectAcres(16 * 300, set);
  EXPECT_NEAR(Gross(set), 20 * 300 / kAcre, 0.006);
  EXPECT_NEAR(Overlap(set), 20, 0.01);
}

TEST_F(NetExport, ForwardAndBackOverTheSameGroundIsHalfOverlap) {
  Wide(10);
  Drive({0, 0}, {0, 300});
  for (int i = 0; i <= 60; ++i) Row({0, 300 - 5.0 * i}, 0);  // in reverse
  const test::ReadSet set = Exported();
  ExpectAcres(10 * 300, set);
  EXPECT_NEAR(Overlap(set), 50, 0.01);
}

TEST_F(NetExport, HoleIsAPartOfTheRecordThatRunsCounterClockwise) {
  Wide(10);
  Drive({0, 0}, {0, 200});
  Drive({0, 200}, {200, 200});
  Drive({200, 200}, {200, 0});
  Drive({200, 0}, {0, 0});
  ground::Geos geos;
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.records.size(), 1U);
  EXPECT_EQ(set.records[0].parts.size(), 2U);
  EXPECT_GT(geos.SquareMetres(test::GroundOfSet(base_, folder_ / "job.sqlite", geos)), 7000);
  // Four sides; at each corner the two lack a square and share one of 5 m.
  ExpectAcres(4 * (200 * 10 - 25), set);
}

TEST_F(NetExport, PiecesAreRecordsTheLargestFirst) {
  Wide(10);
  Drive({0, 0}, {0, 100});
  Drive({500, 0}, {500, 300});
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.records.size(), 2U);
  EXPECT_NEAR(Acres(set, 0), 3000 / kAcre, 0.006);
  EXPECT_NEAR(Acres(set, 1), 1000 / kAcre, 0.006);
  EXPECT_EQ(set.rows[1][0], "       1");
  EXPECT_EQ(set.rows[0][2], set.rows[1][2]) << "of the whole job";
}

TEST_F(NetExport, LongLinesGetPointsInBetweenAsDegreesBendThem) {
  Wide(10);
  Drive({0, 0}, {0, 4000}, 0, 800);
  const test::ReadSet set = Exported();
  ExpectAcres(10 * 4000, set);
  ASSERT_EQ(set.records.size(), 1U);
  const std::vector<geo::GeoPoint>& points = set.records[0].points;
  const double metre = PointAt(0, 1).latitude - PointAt(0, 0).latitude;
  for (std::size_t i = 1; i < points.size(); ++i) {
    EXPECT_LE(std::fabs(points[i].latitude - points[i - 1].latitude), 90.1 * metre);
  }
}

TEST_F(NetExport, OnlySectionsThatAreOnAtBothRowsCount) {
  TwoSections();
  Drive({0, 0}, {0, 200}, 0b11);
  for (int i = 0; i < 40; ++i) Row({0, 205 + 5.0 * i}, 0, 0b10);
  for (int i = 0; i < 10; ++i) Row({0, 405 + 5.0 * i}, 0, 0);
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.records.size(), 1U);
  ExpectAcres(10 * 200 + 5 * 200, set);
  // Driven to the north, the section that stayed on lies to the east.
  EXPECT_GT(set.box.yMax, PointAt(0, 399).latitude);
  // North of the plane and of the ellipsoid differ by less than 2 m there.
  const double middle = PointAt(-2, 300).longitude;
  for (const geo::GeoPoint& point : set.records[0].points) {
    EXPECT_TRUE(point.latitude < PointAt(0, 210).latitude || point.longitude > middle);
  }
}

TEST_F(NetExport, SectionsTurnWithTheMachine) {
  TwoSections();
  Drive({0, 0}, {300, 0}, 0b11);
  const test::ReadSet set = Exported();
  ExpectAcres(10 * 300, set);
  EXPECT_EQ(Overlap(set), 0);
}

TEST_F(NetExport, SectionsSpreadAlongXLieAcrossAsWell) {
  builder_.Implement({1, 0}, "a", {{5, -2.5, 0, 0}, {5, 2.5, 0, 0}});
  Drive({0, 0}, {0, 300}, 0b11);
  ExpectAcres(10 * 300, Exported());
}

TEST_F(NetExport, AllSectionsCountWhenAskedFor) {
  TwoSections();
  Drive({0, 0}, {0, 300}, 0b01);
  exports::ExportRun run{host_, *files_, options_, true};
  ASSERT_TRUE(ExportNetShape(base_, builder_.Finish(), run).made);
  ExpectAcres(10 * 300, test::ReadShapeSet(base_));
}

TEST_F(NetExport, JobThatNeverSetsABitCountsTheFullImplement) {
  TwoSections();
  Drive({0, 0}, {0, 300}, 0);
  ExpectAcres(10 * 300, Exported());
}

TEST_F(NetExport, WidthIsTheImplementRowsOwnAndAbsentSectionsAddNothing) {
  builder_.Implement({1, 0}, "a", {{10, 0, 0, 0}, {-1, 0, 0, 0}});
  builder_.Implement({1, 1000}, "b", {{10, 0, 0, 0}, {0, 0, 0, 0}});
  Drive({0, 0}, {0, 300});
  ExpectAcres(10 * 300, Exported());
}

TEST_F(NetExport, RowsThatAreNoNumbersAreLeftOutAndSaid) {
  Wide(10);
  Drive({0, 0}, {0, 150});
  builder_.Execute("UPDATE GpsDataTable SET e_I_B__B2 = 9e999 WHERE gpsMsec = 1000");
  builder_.Execute("UPDATE GpsDataTable SET yaw = -9e999 WHERE gpsMsec = 1500");
  Drive({0, 150}, {0, 300});
  const exports::ExportOutcome outcome = Export();
  EXPECT_THAT(outcome.summary, HasSubstr("; left out: 2 rows without sound numbers"));
  EXPECT_THAT(host_.messages, IsEmpty());
  ExpectAcres(10 * 300, test::ReadShapeSet(base_));
}

TEST_F(NetExport, MarkOfARowThatIsLeftOutIsTheNextRows) {
  Wide(10);
  Drive({0, 0}, {0, 100});
  Row({0, 0}, 0, 0, true);
  for (int i = 0; i <= 20; ++i) Row({500, 5.0 * i}, 0);
  builder_.Execute("UPDATE GpsDataTable SET n_I_B__B2 = 9e999 WHERE gpsMsec = 2100");
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.records.size(), 2U);
  ExpectAcres(10 * 100, set);
}

TEST_F(NetExport, JumpBeyondAKilometreIsLeftOutAndSaid) {
  Wide(10);
  Drive({0, 0}, {0, 150});
  Row({0, 2500}, 0);
  for (int i = 1; i <= 30; ++i) Row({0, 150 + 5.0 * i}, 0);
  const exports::ExportOutcome outcome = Export();
  EXPECT_THAT(outcome.summary, HasSubstr("; left out: 2 jumps of more than a kilometre"));
  // The step over the odd row is lost.
  const test::ReadSet set = test::ReadShapeSet(base_);
  ASSERT_EQ(set.records.size(), 2U);
  EXPECT_NEAR(Acres(set, 0) + Acres(set, 1), 10 * (300 - 5) / kAcre, 0.011);
}

TEST_F(NetExport, ImplementsWiderThanAnyMachineAreLeftOut) {
  Wide(1e7);
  builder_.Implement({1, 3000}, "b", {{10, 0, 0, 0}});
  Drive({0, 0}, {0, 300});
  const exports::ExportOutcome outcome = Export();
  EXPECT_THAT(outcome.summary, HasSubstr("; left out: 30 rows without sound numbers"));
  ExpectAcres(10 * 150, test::ReadShapeSet(base_));
}

TEST_F(NetExport, RowsLeftOutAreSaidWhereNothingElseIs) {
  LeaveOldSet();
  Wide(1e7);
  Drive({0, 0}, {0, 100});
  const exports::ExportOutcome outcome = Export();
  EXPECT_EQ(outcome.summary, "; left out: 21 rows without sound numbers");
  ExpectNothingWritten(outcome);
}

TEST_F(NetExport, SameJobGivesTheSameBytesEveryTime) {
  TwoSections();
  // Ways that cross at all angles, so that most of the ground is covered many times.
  for (int way = 0; way < 24; ++way) {
    const double east = 90 * std::sin(way * 2.4);
    const double north = 90 * std::cos(way * 2.4);
    Drive({-east, -north}, {east, north}, 1 + way % 3, 1.7);
  }
  const std::string job = builder_.Finish();
  std::set<std::string> sets;
  for (int time = 0; time < 5; ++time) {
    ASSERT_TRUE(Export(job).made);
    std::string bytes;
    for (const char* suffix : {".shp", ".shx", ".dbf"}) bytes += test::FileBytes(base_ + suffix);
    sets.insert(bytes);
  }
  EXPECT_EQ(sets.size(), 1U);
}

TEST_F(NetExport, SummarySaysTheFigures) {
  Wide(10);
  Drive({0, 0}, {0, 5000});
  Drive({6, 5000}, {6, 0});
  EXPECT_EQ(Export().summary, "net 19.8 acres (8.0 ha), swept 24.7, overlap 20.0 %");
}

// Three times 1000 square metres are 0.74 acres, but 0.25 thrice.
TEST_F(NetExport, TellsTheAcresThatItsRecordsShowTogether) {
  Wide(10);
  for (const double east : {0.0, 500.0, 1000.0}) Drive({east, 0}, {east, 100});
  const exports::ExportOutcome outcome = Export();
  ASSERT_EQ(outcome.figures.size(), 3U);
  EXPECT_EQ(outcome.figures[0].name, "acres");
  EXPECT_DOUBLE_EQ(outcome.figures[0].value, 0.75);
  EXPECT_EQ(outcome.figures[1].name, "gross_acres");
  EXPECT_DOUBLE_EQ(outcome.figures[1].value, 0.74);
  EXPECT_EQ(outcome.figures[2].name, "overlap_percent");
}

TEST_F(NetExport, JobWithoutGroundMakesNoSetAndTheOldOneIsGone) {
  LeaveOldSet();
  Wide(10);
  Row({0, 0}, 0);
  ExpectNothingWritten(Export());
  EXPECT_EQ(host_.rows, 1);
}

TEST_F(NetExport, JobWithoutImplementMakesNoSet) {
  Drive({0, 0}, {0, 100});
  ExpectNothingWritten(Export());
}

TEST_F(NetExport, MissingTablesAreToldAndNothingIsWritten) {
  for (const char* table : {"ImplChangeTable", "GpsDataTable"}) {
    builder_.Execute(std::string("DROP TABLE ") + table);
  }
  ExpectNothingWritten(Export());
  EXPECT_EQ(host_.messages, std::vector<std::string>(2, "Error creating statement: -1"));
}

TEST_F(NetExport, JobThatCannotBeOpenedIsToldAndTheOldSetIsGone) {
  LeaveOldSet();
  ExpectNothingWritten(Export(folder_ / "missing.sqlite"));
  EXPECT_THAT(host_.messages, ElementsAre(StartsWith("Error opening: -")));
}

TEST_F(NetExport, WithoutReferenceNothingIsWritten) {
  builder_.Execute("DELETE FROM ReferenceLocationChangeTable");
  Wide(10);
  Drive({0, 0}, {0, 100});
  ExpectNothingWritten(Export());
  EXPECT_TRUE(host_.messages.empty());
}

TEST_F(NetExport, RowsThatEndEarlyLeaveACompleteSetOfThoseBefore) {
  Wide(10);
  Drive({0, 0}, {0, 3000}, 0, 1);
  builder_.Execute("CREATE INDEX byTime ON GpsDataTable (gpsWeek, gpsMsec)");
  const std::string path = builder_.Finish();
  test::DamageTablePage(path);
  const exports::ExportOutcome outcome = Export(path);
  ASSERT_TRUE(outcome.made);
  EXPECT_EQ(outcome.lastStep, 11);
  EXPECT_LT(outcome.epochs, 3000);
  ExpectAcres(10 * static_cast<double>(outcome.epochs - 1), test::ReadShapeSet(base_));
}

TEST_F(NetExport, BaseWithoutANameLeavesNothing) {
  Wide(10);
  Drive({0, 0}, {0, 100});
  base_.clear();
  ExpectNothingWritten(Export());
}

TEST_F(NetExport, CancelledAnywhereItLeavesNothing) {
  Wide(10);
  Drive({0, 0}, {0, 2000});
  const std::string job = builder_.Finish();
  ASSERT_TRUE(Export(job).made);
  const std::int64_t yields = host_.yields;
  // A row each, then tiles and what is written of them.
  EXPECT_GT(yields, host_.rows + 30);
  // In each phase: every yield after the rows.
  std::vector<std::int64_t> moments{1};
  for (std::int64_t at = host_.rows; at <= yields; ++at) moments.push_back(at);
  for (const std::int64_t at : moments) {
    host_.yields = 0;
    host_.cancelAt = at;
    EXPECT_THROW(Export(job), base::RunCancelled) << at;
    ExpectNothingWritten();
  }
}

TEST_F(NetExport, FileOperationThatFailsLeavesNothing) {
  Wide(10);
  Drive({0, 0}, {0, 100});
  const std::string job = builder_.Finish();
  test::FaultyFileSystem faulty(*files_);
  exports::ExportRun run{host_, faulty, options_};
  for (int operation = 1;; ++operation) {
    faulty.FailAt(operation, test::FaultyFileSystem::Lasts::kEverSince);
    try {
      const bool made = ExportNetShape(base_, job, run).made;
      EXPECT_TRUE(made);
      break;
    } catch (const base::FileError&) {
      ExpectNothingWritten();
    }
    ASSERT_LT(operation, 100);
  }
}

}  // namespace
}  // namespace kestrin::net
