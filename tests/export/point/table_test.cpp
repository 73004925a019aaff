#include "export/point/table.h"

#include "tests/export/point/pointFixture.h"

namespace kestrin::point {
namespace {

using Texts = std::vector<std::string>;

class PointTable : public test::PointFixture {
 protected:
  /// A GPS row with a boom status, that takes part or not.
  void Status(std::int64_t status, int type = test::kTakesPart) {
    builder_.Execute(
        "INSERT INTO GpsDataTable (gpsWeek, gpsMsec, type, boomStatusBitfield) VALUES "
        "(1, " +
        std::to_string(++rows_) + ", " + std::to_string(type) + ", " + std::to_string(status) +
        ")");
  }

  Groups Counted() {
    jobstore::Job job(builder_.Finish());
    EXPECT_TRUE(job.IsOpen());
    return CountGroups(job);
  }
  int Sections() { return Counted().sections; }
  int Products() { return Counted().products; }

 private:
  int rows_ = 0;
};

TEST_F(PointTable, HighestBitOfTheLargestStatusGivesTheSections) {
  Status(5);
  EXPECT_EQ(Sections(), 3);
}

TEST_F(PointTable, LargestStatusCountsAndNotTheBitsOfAll) {
  Status(8);
  Status(7);
  Status(4);
  EXPECT_EQ(Sections(), 4);
}

TEST_F(PointTable, SixteenthBitGivesSixteenSections) {
  Status(0x8000);
  EXPECT_EQ(Sections(), 16);
}

TEST_F(PointTable, BitsAboveTheSixteenthNeverCount) {
  Status(0x7FFF0002);
  EXPECT_EQ(Sections(), 2);
}

TEST_F(PointTable, StatusOfHighBitsAloneLeavesItToTheWidths) {
  Status(0x10000);
  builder_.Implement({1, 0}, "Boom", {{3, 0, 0, 0}, {3, 0, 0, 0}});
  EXPECT_EQ(Sections(), 2);
}

TEST_F(PointTable, StatusWithBit32IsNegativeAndLeavesItToTheWidths) {
  Status(0x80000001);
  builder_.Implement({1, 0}, "Boom", {{3, 0, 0, 0}, {3, 0, 0, 0}});
  EXPECT_EQ(Sections(), 2);
}

TEST_F(PointTable, StatusOfRowsThatTakeNoPartCounts) {
  Status(1);
  Status(0x20, 0);
  EXPECT_EQ(Sections(), 6);
}

TEST_F(PointTable, StatusZeroFallsBackToTheLastWidth) {
  Status(0);
  builder_.Implement({1, 0}, "Boom", {{0, 0, 0, 0}, {-1, 0, 0, 0}, {0, 0, 0, 0}, {0.1, 0, 0, 0}});
  EXPECT_EQ(Sections(), 4);
}

TEST_F(PointTable, WidthsOfAllImplementsCount) {
  builder_.Implement({1, 0}, "Wide", std::vector<jobstore::Section>(16, {1, 0, 0, 0}))
      .Implement({2, 0}, "Narrow", {{1, 0, 0, 0}});
  EXPECT_EQ(Sections(), 16);
}

TEST_F(PointTable, StatusGoesBeforeTheWidths) {
  Status(1);
  builder_.Implement({1, 0}, "Boom", std::vector<jobstore::Section>(8, {3, 0, 0, 0}));
  EXPECT_EQ(Sections(), 1);
}

TEST_F(PointTable, OneSectionWithoutStatusAndWidths) {
  Status(0);
  builder_.Implement({1, 0}, "None", {});
  EXPECT_EQ(Sections(), 1);
}

TEST_F(PointTable, OneGroupOfEachWithoutTheTables) {
  for (const char* table : {"GpsDataTable", "ImplChangeTable", "AsAppliedDesRateChangeTable",
                            "AsAppliedActRateChangeTable"}) {
    builder_.Execute(std::string("DROP TABLE ") + table);
  }
  const Groups groups = Counted();
  EXPECT_EQ(groups.sections, 1);
  EXPECT_EQ(groups.products, 1);
}

TEST_F(PointTable, StatusThatCannotBeQueriedLeavesItToTheWidths) {
  builder_.Execute("DROP TABLE GpsDataTable")
      .Implement({1, 0}, "Boom", std::vector<jobstore::Section>(5, {3, 0, 0, 0}));
  EXPECT_EQ(Sections(), 5);
}

TEST_F(PointTable, SectionsWhoseWidthColumnIsMissingAreSkipped) {
  builder_.Implement({1, 0}, "Boom", std::vector<jobstore::Section>(5, {3, 0, 0, 0}))
      .Execute("ALTER TABLE ImplChangeTable RENAME COLUMN width4 TO other");
  EXPECT_EQ(Sections(), 4);
}

TEST_F(PointTable, OneProductWithoutRates) { EXPECT_EQ(Products(), 1); }

TEST_F(PointTable, LastDesiredRateGivesTheProducts) {
  builder_.DesiredRates({1, 0}, 0, 12.5).DesiredRates({1, 1}, 3);
  EXPECT_EQ(Products(), 2);
}

TEST_F(PointTable, DesiredRateOfTheThirdSlotAloneGivesThree) {
  builder_.DesiredRates({1, 0}, 0, 0, 0.001);
  EXPECT_EQ(Products(), 3);
}

TEST_F(PointTable, ActualRatesMayTakeProductsAway) {
  builder_.DesiredRates({1, 0}, 10, 20).ActualRates({1, 0}, 9);
  EXPECT_EQ(Products(), 1);
}

TEST_F(PointTable, ActualRatesMayAddProducts) {
  builder_.DesiredRates({1, 0}, 10).ActualRates({1, 0}, 0, 0, 1);
  EXPECT_EQ(Products(), 3);
}

TEST_F(PointTable, ActualRatesOfNothingChangeNothing) {
  builder_.DesiredRates({1, 0}, 10, 20).ActualRates({1, 0}, 0, 0, -1);
  EXPECT_EQ(Products(), 2);
}

TEST_F(PointTable, ActualRatesAreNotAskedWhenThreeAreDesired) {
  builder_.DesiredRates({1, 0}, 0, 0, 5).ActualRates({1, 0}, 9);
  EXPECT_EQ(Products(), 3);
}

TEST_F(PointTable, NullRatesCountAsZero) {
  builder_.Execute("INSERT INTO AsAppliedDesRateChangeTable (gpsWeek, gpsMsec) VALUES (1, 0)");
  EXPECT_EQ(Products(), 1);
}

Texts Names(Groups groups) {
  Texts names;
  for (const shapefile::Field& field : FieldsOf(groups)) names.push_back(field.name);
  return names;
}

const Texts kFixedNames = {"ID",    "Week",  "Msec",       "Longitude", "Latitude", "Altitude",
                           "East",  "North", "Up",         "Yaw",       "Pitch",    "Roll",
                           "Speed", "Type",  "BoomStatus", "Implement"};

Texts WithFixed(const Texts& others) {
  Texts names = kFixedNames;
  names.insert(names.end(), others.begin(), others.end());
  return names;
}

TEST(FieldsOf, NamesOfASingleGroupCarryNoDigit) {
  EXPECT_EQ(Names({1, 1}), WithFixed({"Width", "Xoffset", "Yoffset", "Zoffset", "Product",
                                      "TargRate", "ActRate"}));
}

TEST(FieldsOf, NamesOfSeveralGroupsCarryTheirNumber) {
  EXPECT_EQ(Names({3, 2}),
            WithFixed({"Width1", "Xoffset1", "Yoffset1", "Zoffset1", "Width2", "Xoffset2",
                       "Yoffset2", "Zoffset2", "Width3", "Xoffset3", "Yoffset3", "Zoffset3",
                       "Product1", "TargRate1", "ActRate1", "Product2", "TargRate2", "ActRate2"}));
}

TEST(FieldsOf, OneCountMayBeOneWhereTheOtherIsNot) {
  EXPECT_EQ(Names({1, 2})[16], "Width");
  EXPECT_EQ(Names({1, 2})[20], "Product1");
  EXPECT_EQ(Names({2, 1})[16], "Width1");
  EXPECT_EQ(Names({2, 1})[24], "Product");
}

TEST(FieldsOf, HaveTheirTypesWidthsAndDecimals) {
  std::string types;
  std::vector<int> widths;
  std::vector<int> decimals;
  for (const shapefile::Field& field : FieldsOf({1, 1})) {
    types += field.type;
    widths.push_back(field.width);
    decimals.push_back(field.decimals);
  }
  EXPECT_EQ(types, "NNNNNNNNNNNNNNNCNNNNCNN");
  EXPECT_EQ(widths, (std::vector<int>{10, 10, 10, 13, 12, 10, 10, 10, 10, 6,  6, 6,
                                      6,  10, 10, 10, 10, 10, 10, 10, 10, 10, 10}));
  EXPECT_EQ(decimals, (std::vector<int>{0, 0, 0, 8, 8, 2, 2, 2, 2, 2, 2, 2,
                                        2, 0, 0, 0, 2, 2, 2, 2, 0, 2, 2}));
}

TEST(FieldsOf, GiveRecordsOf220To880Bytes) {
  EXPECT_EQ(shapefile::RecordLength(FieldsOf({1, 1})), 220U);
  EXPECT_EQ(shapefile::TableHeader(FieldsOf({1, 1}), {2006, 7, 9}, 0).size(), 769U);
  EXPECT_EQ(shapefile::RecordLength(FieldsOf({16, 3})), 880U);
  EXPECT_EQ(shapefile::TableHeader(FieldsOf({16, 3}), {2006, 7, 9}, 0).size(), 2881U);
}

TEST(FieldsOf, ProductsBeginBehindTheSections) {
  for (const Groups groups : {Groups{1, 1}, Groups{16, 3}}) {
    EXPECT_EQ(FieldsOf(groups)[kImplementField].name, "Implement");
    EXPECT_EQ(FieldsOf(groups)[FirstProductField(groups)].name.substr(0, 7), "Product");
  }
}

}  // namespace
}  // namespace kestrin::point
