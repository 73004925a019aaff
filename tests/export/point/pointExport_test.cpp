#include "export/point/pointExport.h"

#include <algorithm>

#include "tests/export/point/pointFixture.h"
#include "tests/support/faultyFileSystem.h"

namespace kestrin::point {
namespace {

using Texts = std::vector<std::string>;
using test::kAltitude;
using test::kLatitude;
using test::kLongitude;

class PointExport : public test::PointFixture {
 protected:
  /// Rows of week 1 at these milliseconds.
  test::JobBuilder& Rows(std::initializer_list<int> msecs) {
    for (const int msec : msecs) builder_.Epoch({1, msec}, 0, 0);
    return builder_;
  }
};

TEST_F(PointExport, EveryRowIsAPoint) {
  builder_.Epoch({1, 0}, 1, 2).Epoch({1, 100}, 3, 4).Epoch({1, 200}, -5, 6);
  const test::ReadSet set = Exported();
  EXPECT_EQ(set.type, 1);
  ASSERT_EQ(set.records.size(), 3U);
  EXPECT_EQ(set.records[0].points, std::vector{PointAt(1, 2)});
  EXPECT_EQ(set.records[1].points, std::vector{PointAt(3, 4)});
  EXPECT_EQ(set.records[2].points, std::vector{PointAt(-5, 6)});
}

TEST_F(PointExport, FilesHave28And8BytesARecord) {
  Rows({0, 1, 2});
  Exported();
  const std::string shp = test::FileBytes(base_ + ".shp");
  const std::string shx = test::FileBytes(base_ + ".shx");
  ASSERT_EQ(shp.size(), 100U + 3 * 28);
  ASSERT_EQ(shx.size(), 100U + 3 * 8);
  EXPECT_EQ(shp.substr(24, 4), std::string("\0\0\0\x5C", 4));  // 50 + 14 * 3 words
  EXPECT_EQ(shp.substr(128, 12), std::string("\0\0\0\x02\0\0\0\x0A\x01\0\0\0", 12));
  EXPECT_EQ(shx.substr(24, 4), std::string("\0\0\0\x3E", 4));
  EXPECT_EQ(shx.substr(108, 8), std::string("\0\0\0\x40\0\0\0\x0A", 8));
  const std::string dbf = test::FileBytes(base_ + ".dbf");
  EXPECT_EQ(dbf.size(), 769U + 3 * 220 + 1);
  EXPECT_EQ(dbf.substr(4, 8), std::string("\x03\0\0\0\x01\x03\xDC\0", 8));
}

TEST_F(PointExport, BoxHoldsEveryPoint) {
  builder_.Epoch({1, 0}, 10, 0).Epoch({1, 1}, -300, 200).Epoch({1, 2}, 50, -700);
  const test::ReadSet set = Exported();
  const auto middle = PointAt(-300, 200);
  EXPECT_EQ(set.box.xMin, middle.longitude);
  EXPECT_EQ(set.box.yMin, PointAt(50, -700).latitude);
  EXPECT_EQ(set.box.xMax, PointAt(50, -700).longitude);
  EXPECT_EQ(set.box.yMax, middle.latitude);
}

TEST_F(PointExport, RecordHoldsAllThatIsKnownOfTheRow) {
  jobstore::EpochRow row;
  row.time = {350, 86399999};
  row.east = 12.347;
  row.north = -0.25;
  row.down = -1.5;
  row.yaw = 0.5;
  row.pitch = -0.1;
  row.roll = 0.001;
  row.speed = 2.5;
  row.type = 24576;
  row.boomStatus = 1;
  builder_.Epoch(row)
      .Implement({1, 0}, "Sprayer", {{3, -0.25, 1.5, 0}}, 7)
      .Products({1, 0}, "Urea")
      .DesiredRates({1, 0}, 12.5)
      .ActualRates({1, 0}, 12.346);
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.rows.size(), 1U);
  Texts row0 = set.rows[0];
  const auto [x, y] = PointAt(12.347, -0.25);
  EXPECT_NEAR(std::stod(row0[3]), x, 5.1e-9);
  EXPECT_NEAR(std::stod(row0[4]), y, 5.1e-9);
  row0.erase(row0.begin() + 3, row0.begin() + 5);
  EXPECT_EQ(row0, (Texts{"         0", "       350", "  86399999", "     298.5", "     12.35",
                         "     -0.25", "      -1.5", " 28.65",     " -5.73",     "  0.06",
                         "   2.5",     "     24576", "         1", "   Sprayer", "         3",
                         "     -0.25", "       1.5", "         0", "      Urea", "      12.5",
                         "     12.35"}));
}

TEST_F(PointExport, IdCountsFromZero) {
  Rows({0, 1, 2});
  EXPECT_EQ(Column(Exported(), "ID"), (Texts{"         0", "         1", "         2"}));
}

TEST_F(PointExport, LongitudeAndLatitudeHaveEightDecimals) {
  builder_.Epoch({1, 0}, 123.4, 567.8);
  const test::ReadSet set = Exported();
  const auto [x, y] = set.records[0].points[0];
  char text[32];
  std::snprintf(text, sizeof text, "%13.8f", x);
  EXPECT_EQ(std::stod(Column(set, "Longitude")[0]), std::stod(text));
  std::snprintf(text, sizeof text, "%12.8f", y);
  EXPECT_EQ(std::stod(Column(set, "Latitude")[0]), std::stod(text));
}

TEST_F(PointExport, UpKeepsItsSignAndAddsToTheAltitude) {
  jobstore::EpochRow row;
  row.type = test::kTakesPart;
  row.down = -2.375;
  builder_.Epoch(row);
  const test::ReadSet set = Exported();
  EXPECT_EQ(Column(set, "Up")[0], "     -2.38");
  EXPECT_EQ(Column(set, "Altitude")[0], "    297.62");
}

TEST_F(PointExport, RoundingIsHalfToEven) {
  builder_.Epoch({1, 0}, 0.125, 0.375).Epoch({1, 1}, -0.125, 2.625);
  const test::ReadSet set = Exported();
  EXPECT_EQ(TrimmedColumn(set, "East"), (Texts{"0.12", "-0.12"}));
  EXPECT_EQ(TrimmedColumn(set, "North"), (Texts{"0.38", "2.62"}));
}

TEST_F(PointExport, NumbersHaveNoTrailingZerosAndNoNegativeZero) {
  builder_.Epoch({1, 0}, 12.5, 3).Epoch({1, 1}, -0.25, -0.001);
  const test::ReadSet set = Exported();
  EXPECT_EQ(TrimmedColumn(set, "East"), (Texts{"12.5", "-0.25"}));
  EXPECT_EQ(TrimmedColumn(set, "North"), (Texts{"3", "0"}));
}

TEST_F(PointExport, YawOfMinus179Point99LosesItsSign) {
  constexpr double kRadians = 0.0174532925199433;
  jobstore::EpochRow row;
  row.type = test::kTakesPart;
  row.yaw = -179.99 * kRadians;
  row.pitch = 179.99 * kRadians;
  row.roll = -99.99 * kRadians;
  row.speed = -1234.56;
  builder_.Epoch(row);
  const test::ReadSet set = Exported();
  EXPECT_EQ(Column(set, "Yaw")[0], "179.99");
  EXPECT_EQ(Column(set, "Pitch")[0], "179.99");
  EXPECT_EQ(Column(set, "Roll")[0], "-99.99");
  EXPECT_EQ(Column(set, "Speed")[0], "234.56");
}

TEST_F(PointExport, OffsetTooLongForItsFieldKeepsItsLastTenCharacters) {
  builder_.Epoch({1, 0}, -12345678.25, 0);
  EXPECT_EQ(Column(Exported(), "East")[0], "2345678.25");
}

TEST_F(PointExport, IntegersOfElevenCharactersLoseTheirSign) {
  jobstore::EpochRow row;
  row.time = {-2147483647, 0};
  row.type = test::kTakesPart - 2147483647 - 1;
  row.boomStatus = -2147483647;
  builder_.Epoch(row);
  const test::ReadSet set = Exported();
  EXPECT_EQ(Column(set, "Week")[0], "2147483647");
  EXPECT_EQ(Column(set, "Type")[0], "2147475456");
  EXPECT_EQ(Column(set, "BoomStatus")[0], "2147483647");
}

TEST_F(PointExport, NumbersThatAreNoneAreZero) {
  builder_.Epoch({1, 0}, 0, 0).Execute("UPDATE GpsDataTable SET speed = 9e999, yaw = -9e999");
  const test::ReadSet set = Exported();
  EXPECT_EQ(Column(set, "Speed")[0], "     0");
  EXPECT_EQ(Column(set, "Yaw")[0], "     0");
}

TEST_F(PointExport, SectionNumbersAreNotRounded) {
  Rows({0}).Implement({1, 0}, "Boom", {{0.333333333333333, 1.0625, -2.125, 1e-5}});
  const test::ReadSet set = Exported();
  EXPECT_EQ(Column(set, "Width")[0], "3333333333");
  EXPECT_EQ(Column(set, "Xoffset")[0], "    1.0625");
  EXPECT_EQ(Column(set, "Yoffset")[0], "    -2.125");
  EXPECT_EQ(Column(set, "Zoffset")[0], "     1E-05");
}

TEST_F(PointExport, EveryCountedSectionShowsItsOwnNumbers) {
  jobstore::EpochRow row;
  row.type = test::kTakesPart;
  row.boomStatus = 5;
  builder_.Epoch(row).Implement({1, 0}, "Boom", {{1, 2, 3, 4}, {-1, 6, 7, 8}, {9, 10, 11, 12}});
  const test::ReadSet set = Exported();
  ASSERT_EQ(set.fields.size(), 16U + 12 + 3);
  for (std::size_t i = 0; i < 12; ++i) {
    const int expected = i == 4 ? -1 : static_cast<int>(i) + 1;
    EXPECT_EQ(test::Trimmed(set.rows[0][16 + i]), std::to_string(expected));
  }
}

TEST_F(PointExport, EveryCountedProductShowsItsNameAndRates) {
  Rows({0})
      .Products({1, 0}, "Urea", "Lime", "Salt")
      .DesiredRates({1, 0}, 10, 20, 30)
      .ActualRates({1, 0}, 9.5, 19.005, 29.015);
  const Texts row = Exported().rows[0];
  EXPECT_EQ(Texts(row.begin() + 20, row.end()),
            (Texts{"      Urea", "        10", "       9.5", "      Lime", "        20",
                   "        19", "      Salt", "        30", "     29.02"}));
}

TEST_F(PointExport, TablesOfChangesThatAreMissingOrEmptyShowZerosAndNoNames) {
  Rows({0})
      .Execute("DROP TABLE ImplChangeTable")
      .Execute("DROP TABLE AsAppliedDesRateChangeTable")
      .Execute("DROP TABLE AsAppliedProductChangeTable");
  const Texts row = Exported().rows[0];
  const std::string zero = "         0";
  const std::string blank = "          ";
  EXPECT_EQ(Texts(row.begin() + 15, row.end()),
            (Texts{blank, zero, zero, zero, zero, blank, zero, zero}));
}

TEST_F(PointExport, ColumnsTheImplementTableLacksReadZero) {
  Rows({0}).Execute("DROP TABLE ImplChangeTable");
  builder_.Execute("CREATE TABLE ImplChangeTable (gpsWeek, gpsMsec, name, number, width0, x0)");
  builder_.Execute("INSERT INTO ImplChangeTable VALUES (1, 0, 'Short', 1, 2.5, 4)");
  const Texts row = Exported().rows[0];
  EXPECT_EQ(Texts(row.begin() + 15, row.begin() + 20),
            (Texts{"     Short", "       2.5", "         4", "         0", "         0"}));
}

TEST_F(PointExport, RowsThatTakeNoPartAreNoPoints) {
  jobstore::EpochRow out;
  out.time = {1, 1};
  out.type = ~test::kTakesPart;
  builder_.Epoch({1, 0}, 0, 0).Epoch(out).Epoch({1, 2}, 0, 0);
  EXPECT_EQ(TrimmedColumn(Exported(), "Msec"), (Texts{"0", "2"}));
  EXPECT_EQ(host_.rows, 2);
}

TEST_F(PointExport, RowsComeInOrderOfWeekThenMillisecond) {
  builder_.Epoch({2, 0}, 3, 0).Epoch({1, 900}, 1, 0).Epoch({1, 900}, 2, 0).Epoch({1, 100}, 0, 0);
  EXPECT_EQ(TrimmedColumn(Exported(), "East"), (Texts{"0", "1", "2", "3"}));
}

TEST_F(PointExport, TableIsOfTheDayOfWriting) {
  Rows({0});
  EXPECT_EQ(Exported().date, (std::array<int, 3>{2006, 7, 9}));
}

TEST_F(PointExport, CountsAndYieldsOncePerRow) {
  Rows({0, 1, 2});
  const exports::ExportOutcome outcome = Export();
  EXPECT_TRUE(outcome.made);
  EXPECT_EQ(outcome.epochs, 3);
  EXPECT_EQ(outcome.lastStep, jobstore::kDone);
  EXPECT_EQ(host_.rows, 3);
  EXPECT_EQ(host_.yields, 3);
}

}  // namespace
}  // namespace kestrin::point
