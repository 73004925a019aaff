#include "export/coverage/coverageExport.h"

#include <gtest/gtest.h>

#include <cmath>

#include "export/coverage/polygonBuilder.h"
#include "export/coverage/widths.h"
#include "tests/export/coverage/literalCoverage.h"
#include "tests/export/coverage/ringsOf.h"
#include "tests/export/setFixture.h"

namespace kestrin::coverage {
namespace {

constexpr bool kBegins = true;

class PolyExport : public test::SetFixture {
 protected:
  /// Of a job with one reference location and an implement 10 m wide.
  PolyExport() : SetFixture(ExportPolyShape, "job_POLY") {
    builder_.Reference({1, 0}, test::kLatitude, test::kLongitude);
    builder_.Implement({1, 0}, "a", {{10, 0, 0, 0}});
  }
};

/// Four rows due north, 10 m apart.
void DriveNorth(test::JobBuilder& job, int rows = 4) {
  for (int i = 0; i < rows; ++i) job.Epoch({1, 100 * i}, 0, 10.0 * i);
}

TEST_F(PolyExport, RingRunsUpTheLeftEdgeAndDownTheRightOne) {
  DriveNorth(builder_);
  const test::ReadSet set = Exported();
  EXPECT_EQ(set.type, 5);
  ASSERT_EQ(set.records.size(), 1U);
  const auto& points = set.records[0].points;
  ASSERT_EQ(points.size(), 9U);
  EXPECT_EQ(points.front(), points.back());
  EXPECT_LT(points[0].longitude, points[7].longitude);
  EXPECT_LT(points[0].latitude, points[3].latitude);
  EXPECT_LT(points[3].longitude, points[4].longitude);
}

TEST_F(PolyExport, AreaIsInAcresOfThePlane) {
  DriveNorth(builder_);
  // 30 m by 10 m.
  EXPECT_EQ(Exported().rows[0], (std::vector<std::string>{"       0", "      0.07"}));
}

TEST_F(PolyExport, TableIsIdAndAcres) {
  DriveNorth(builder_);
  EXPECT_EQ(Exported().fields,
            (std::vector<test::ReadField>{{"ID", 'N', 8, 0}, {"ACRES", 'N', 10, 2}}));
}

TEST_F(PolyExport, FewerThanFourRowsWriteNothingAndTheOldSetIsGone) {
  LeaveOldSet();
  DriveNorth(builder_, 3);
  ExpectNothingWritten(Export());
}

TEST_F(PolyExport, SkippedRowsDoNotCountAsRows) {
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 1}, 0, 0).Epoch({1, 2}, 0, 5).Epoch({1, 3}, 0, 9);
  ExpectNothingWritten(Export());
}

TEST_F(PolyExport, WithoutBasePathRowsAreReadAndNothingIsWritten) {
  DriveNorth(builder_);
  base_.clear();
  ExpectNothingWritten(Export());
  EXPECT_EQ(host_.rows, 4);
}

TEST_F(PolyExport, CountsAndYieldsOncePerRowReadAlsoForSkippedOnes) {
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 1}, 0, 0).Epoch({1, 2}, 0, 5);
  Export();
  EXPECT_EQ(host_.rows, 3);
  EXPECT_EQ(host_.yields, 3);
}

TEST_F(PolyExport, YieldsWhileALongRingIsWrittenAndLeavesNothingWhenCancelledThere) {
  DriveNorth(builder_, 100);
  host_.cancelAt = 101;
  EXPECT_THROW(Export(), base::RunCancelled);
  EXPECT_EQ(host_.rows, 100);
  ExpectNothingWritten();
}

TEST_F(PolyExport, MarkedRowsBeginAPolygonEvenOnTheSpot) {
  DriveNorth(builder_);
  for (int i = 0; i < 4; ++i) builder_.Epoch({2, i}, 0, 30 + 5.0 * i, 0, i == 0 && kBegins);
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.records.size(), 2U);
  EXPECT_EQ(set.records[1].points.size(), 9U);
  EXPECT_EQ(set.rows[1][0], "       1");
}

TEST_F(PolyExport, RingOfFewerThanThreePointsIsNotWrittenAndIdsStayConsecutive) {
  builder_.Epoch({1, 0}, 0, 0, 0, kBegins);
  for (int i = 1; i < 5; ++i) builder_.Epoch({1, i}, 50, 5.0 * i, 0, i == 1 && kBegins);
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.records.size(), 1U);
  EXPECT_EQ(set.rows[0][0], "       0");
}

TEST_F(PolyExport, NoRingAtAllMakesNoFiles) {
  for (int i = 0; i < 6; ++i) builder_.Epoch({1, i}, 50.0 * i, 0, 0, kBegins);
  ExpectNothingWritten(Export());
}

TEST_F(PolyExport, MissingImplementTableIsReportedAndWidthIsNone) {
  builder_.Execute("DROP TABLE ImplChangeTable");
  builder_.Epoch({1, 0}, 0, 0).Epoch({1, 1}, 0, 5).Epoch({1, 2}, 5, 9).Epoch({1, 3}, 9, 9);
  EXPECT_TRUE(Export().made);
  EXPECT_EQ(test::ReadShapeSet(base_).rows[0][1], "         0");
  EXPECT_EQ(host_.messages, std::vector<std::string>{"Error creating statement: -1"});
}

TEST_F(PolyExport, MissingGpsTableIsReportedAndNothingIsWritten) {
  builder_.Execute("DROP TABLE GpsDataTable");
  ExpectNothingWritten(Export());
  EXPECT_EQ(host_.messages, std::vector<std::string>{"Error creating statement: -1"});
}

TEST_F(PolyExport, WithoutReferenceNothingIsWritten) {
  builder_.Execute("DELETE FROM ReferenceLocationChangeTable");
  DriveNorth(builder_);
  ExpectNothingWritten(Export());
  EXPECT_TRUE(host_.messages.empty());
}

TEST_F(PolyExport, MissingReferenceTableIsReportedAndNothingIsWritten) {
  builder_.Execute("DROP TABLE ReferenceLocationChangeTable");
  DriveNorth(builder_);
  ExpectNothingWritten(Export());
  EXPECT_EQ(host_.messages, std::vector<std::string>{"Error creating statement: -1"});
}

TEST_F(PolyExport, JobThatCannotBeOpenedIsToldAndTheOldSetIsGone) {
  LeaveOldSet();
  ExpectNothingWritten(Export(folder_ / "missing.sqlite"));
  ASSERT_EQ(host_.messages.size(), 1U);
  EXPECT_TRUE(host_.messages[0].starts_with("Error opening: -"));
}

TEST_F(PolyExport, RowsThatADamagedJobEndsAreToldByTheirError) {
  DriveNorth(builder_, 5000);
  const std::string job = builder_.Finish();
  test::DamageTablePage(job);
  const exports::ExportOutcome outcome = Export(job);
  EXPECT_EQ(outcome.lastStep, 11);
  EXPECT_LT(outcome.epochs, 5000);
}

// Twice 300 square metres are 0.15 acres, but 0.07 twice.
TEST_F(PolyExport, FigureAddsUpTheAcresAsTheRecordsShowThem) {
  DriveNorth(builder_);
  for (int i = 0; i < 4; ++i) builder_.Epoch({2, i}, 50, 10.0 * i, 0, i == 0 && kBegins);
  const exports::ExportOutcome outcome = Export();
  ASSERT_EQ(outcome.figures.size(), 1U);
  EXPECT_EQ(outcome.figures[0].name, "acres");
  EXPECT_EQ(outcome.figures[0].value, 0.14);
}

TEST_F(PolyExport, AcresTooLongForTheirFieldKeepTheirFirstCharacters) {
  builder_.Execute("DELETE FROM ImplChangeTable");
  builder_.Implement({1, 0}, "a", {{250000, 0, 0, 0}});
  for (int i = 0; i < 4; ++i) builder_.Epoch({1, i}, 0, 1e5 * i);
  const exports::ExportOutcome outcome = Export();
  EXPECT_EQ(test::ReadShapeSet(base_).rows.at(0).at(1), "18532903.5");
  EXPECT_EQ(outcome.figures.at(0).value, 18532903.5);
}

jobstore::ImplementRow Implement(jobstore::GpsKey time, std::initializer_list<double> widths) {
  jobstore::ImplementRow row;
  row.time = time;
  std::size_t slot = 0;
  for (const double width : widths) row.sections[slot++].width = width;
  return row;
}

TEST(WidthTimeline, WidthsAddUpOverTheRows) {
  WidthTimeline widths;
  widths.Add(Implement({1, 0}, {10}));
  widths.Add(Implement({1, 50}, {4, 6, -1}));
  EXPECT_EQ(widths.At({1, 0}), 10);
  EXPECT_EQ(widths.At({1, 49}), 10);
  EXPECT_EQ(widths.At({1, 50}), 20);
}

TEST(WidthTimeline, SectionOfAnyNegativeWidthIsAbsent) {
  WidthTimeline widths;
  widths.Add(Implement({1, 0}, {10, -0.5, -1}));
  EXPECT_EQ(widths.At({1, 0}), 10);
}

TEST(WidthTimeline, EarlierRowsUseTheFirstEntryEvenOfNoWidth) {
  WidthTimeline widths;
  widths.Add(Implement({1, 100}, {}));
  widths.Add(Implement({1, 200}, {3}));
  EXPECT_EQ(widths.At({1, 0}), 0);
  EXPECT_EQ(widths.At({1, 200}), 3);
}

TEST(WidthTimeline, EmptyTimelineHasNoWidth) { EXPECT_EQ(WidthTimeline().At({1, 0}), 0); }

TEST(PolygonBuilder, RingsOfWaysWhoseEdgesDoNotCrossAreTheLiteralOnes) {
  for (int run = 0; run < 50; ++run) {
    std::vector<test::LiteralRow> rows;
    double yaw = run;
    geo::UtmPoint at{5e5, 5e6};
    for (int i = 0; i < 200; ++i) {
      yaw += 0.04 * std::sin(0.1 * i + run);
      at = {at.easting + 2 * std::sin(yaw), at.northing + 2 * std::cos(yaw)};
      rows.push_back({SwathRow::Of(at, yaw, 4 + run % 5), i % (60 + run) == 59});
    }
    const auto rings = test::RingsOf(rows);
    const auto literal = test::LiteralPolygons(rows).Rings();
    ASSERT_EQ(rings.size(), literal.size());
    for (std::size_t i = 0; i < rings.size(); ++i) {
      ASSERT_FALSE(test::RingCrossesItself(literal[i]));
      EXPECT_TRUE(rings[i].metres == literal[i]) << run;
    }
  }
}

TEST(PolygonBuilder, RowThatMovesOneEndAloneIsTaken) {
  // The vehicle pivots about one end of its boom, which stays where it is to the bit.
  using Points = std::vector<geo::UtmPoint>;
  const geo::UtmPoint pivot{0, 0};
  std::vector<test::LiteralRow> rows;
  const auto swing = [&](const Points& ends, bool left) {
    for (const geo::UtmPoint& end : ends) {
      const geo::UtmPoint centre{end.easting / 2, end.northing / 2};
      rows.push_back({{centre, left ? end : pivot, left ? pivot : end}, end == ends.front()});
    }
  };
  swing({{-10, 0}, {-8, 6}, {-6, 8}, {0, 10}}, true);
  swing({{10, 0}, {8, 6}, {6, 8}, {0, 10}}, false);
  const auto rings = test::RingsOf(rows);
  ASSERT_EQ(rings.size(), 2U);
  EXPECT_EQ(rings[0].metres, (Points{{-10, 0}, {-8, 6}, {-6, 8}, {0, 10}, pivot, {-10, 0}}));
  EXPECT_EQ(rings[1].metres, (Points{pivot, {0, 10}, {6, 8}, {8, 6}, {10, 0}, pivot}));
}

}  // namespace
}  // namespace kestrin::coverage
