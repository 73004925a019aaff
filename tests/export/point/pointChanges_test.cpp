#include "tests/export/point/pointFixture.h"

/// Which implement, product, rate and reference location a point shows.

namespace kestrin::point {
namespace {

using Texts = std::vector<std::string>;
using test::kAltitude;
using test::kLatitude;
using test::kLongitude;

class PointChanges : public test::PointFixture {
 protected:
  test::JobBuilder& Rows(std::initializer_list<jobstore::GpsKey> keys) {
    for (const jobstore::GpsKey key : keys) builder_.Epoch(key, 0, 0);
    return builder_;
  }

  /// A table's text column with a byte 0 or other bytes SQL text cannot show.
  static std::string Bytes(const std::string& hex) { return "CAST(x'" + hex + "' AS TEXT)"; }

  Texts ImplementNamed(const std::string& sql) {
    Rows({{1, 0}}).Execute(
        "INSERT INTO ImplChangeTable (gpsWeek, gpsMsec, implName) VALUES (1, 0, " + sql + ")");
    return Column(Exported(), "Implement");
  }
};

TEST_F(PointChanges, ApplyFromExactlyTheirOwnTime) {
  Rows({{1, 0}, {1, 99}, {1, 100}, {1, 101}})
      .Reference({1, 100}, kLatitude, kLongitude, 400)
      .Products({1, 0}, "Old")
      .Products({1, 100}, "New")
      .DesiredRates({1, 0}, 1)
      .DesiredRates({1, 100}, 2)
      .ActualRates({1, 0}, 3)
      .ActualRates({1, 100}, 4)
      .Implement({1, 0}, "Old", {})
      .Implement({1, 100}, "New", {})
      .Implement({9, 0}, "Never", {});
  const test::ReadSet set = Exported();
  EXPECT_EQ(TrimmedColumn(set, "Altitude"), (Texts{"300", "300", "400", "400"}));
  EXPECT_EQ(TrimmedColumn(set, "Product"), (Texts{"Old", "Old", "New", "New"}));
  EXPECT_EQ(TrimmedColumn(set, "TargRate"), (Texts{"1", "1", "2", "2"}));
  EXPECT_EQ(TrimmedColumn(set, "ActRate"), (Texts{"3", "3", "4", "4"}));
  EXPECT_EQ(TrimmedColumn(set, "Implement"), (Texts{"Old", "Old", "New", "New"}));
}

TEST_F(PointChanges, FirstRowIsInForceAlsoBeforeItsTime) {
  builder_.Execute("DELETE FROM ReferenceLocationChangeTable")
      .Reference({5, 0}, kLatitude, kLongitude, 250)
      .Products({5, 0}, "Urea")
      .DesiredRates({5, 0}, 1)
      .ActualRates({5, 0}, 2)
      .Implement({5, 0}, "Sprayer", {{3, 0, 0, 0}});
  Rows({{1, 0}});
  const test::ReadSet set = Exported();
  EXPECT_EQ(TrimmedColumn(set, "Altitude"), Texts{"250"});
  EXPECT_EQ(TrimmedColumn(set, "Product"), Texts{"Urea"});
  EXPECT_EQ(TrimmedColumn(set, "TargRate"), Texts{"1"});
  EXPECT_EQ(TrimmedColumn(set, "ActRate"), Texts{"2"});
  EXPECT_EQ(TrimmedColumn(set, "Implement"), Texts{"Sprayer"});
  EXPECT_EQ(TrimmedColumn(set, "Width"), Texts{"3"});
}

TEST_F(PointChanges, LastImplementChangeIsNeverApplied) {
  Rows({{1, 0}, {1, 100}, {1, 200}, {9, 0}})
      .Implement({1, 0}, "First", {{1, 0, 0, 0}})
      .Implement({1, 100}, "Second", {{2, 0, 0, 0}})
      .Implement({1, 200}, "Last", {{3, 0, 0, 0}});
  const test::ReadSet set = Exported();
  EXPECT_EQ(TrimmedColumn(set, "Implement"), (Texts{"First", "Second", "Second", "Second"}));
  EXPECT_EQ(TrimmedColumn(set, "Width"), (Texts{"1", "2", "2", "2"}));
}

TEST_F(PointChanges, SecondOfTwoImplementsIsNeverApplied) {
  Rows({{1, 0}, {9, 0}}).Implement({1, 0}, "First", {}).Implement({1, 0}, "Last", {});
  EXPECT_EQ(TrimmedColumn(Exported(), "Implement"), (Texts{"First", "First"}));
}

TEST_F(PointChanges, OnlyImplementIsInForce) {
  Rows({{1, 0}, {9, 0}}).Implement({3, 0}, "Only", {});
  EXPECT_EQ(TrimmedColumn(Exported(), "Implement"), (Texts{"Only", "Only"}));
}

TEST_F(PointChanges, LastOfSeveralBetweenTwoRowsIsInForce) {
  Rows({{1, 0}, {1, 100}});
  for (const int i : {0, 10, 20, 30}) {
    builder_.Products({1, i}, "P" + std::to_string(i))
        .DesiredRates({1, i}, i)
        .ActualRates({1, i}, i);
    builder_.Implement({1, i}, "I" + std::to_string(i), {});
  }
  const test::ReadSet set = Exported();
  EXPECT_EQ(TrimmedColumn(set, "Product"), (Texts{"P0", "P30"}));
  EXPECT_EQ(TrimmedColumn(set, "TargRate"), (Texts{"0", "30"}));
  EXPECT_EQ(TrimmedColumn(set, "ActRate"), (Texts{"0", "30"}));
  EXPECT_EQ(TrimmedColumn(set, "Implement"), (Texts{"I0", "I20"}));
}

TEST_F(PointChanges, RowsOfOneTimeFollowEachOther) {
  Rows({{1, 5}}).DesiredRates({1, 0}, 1).DesiredRates({1, 5}, 2).DesiredRates({1, 5}, 3);
  EXPECT_EQ(TrimmedColumn(Exported(), "TargRate"), Texts{"3"});
}

TEST_F(PointChanges, LaterWeekApplies) {
  Rows({{1, 604799999}, {2, 0}, {3, 5}})
      .DesiredRates({1, 0}, 1)
      .DesiredRates({2, 0}, 2)
      .DesiredRates({2, 600000000}, 3);
  EXPECT_EQ(TrimmedColumn(Exported(), "TargRate"), (Texts{"1", "2", "3"}));
}

TEST_F(PointChanges, ReferenceMovesTheOriginInTheFirstZone) {
  builder_.Execute("DELETE FROM ReferenceLocationChangeTable")
      .Reference({1, 0}, 40, -96.0001)
      .Reference({1, 100}, 40, -95.9999);
  Rows({{1, 0}, {1, 100}});
  const test::ReadSet set = Exported();
  EXPECT_NEAR(set.records[0].points[0].longitude, -96.0001, 1e-9);
  EXPECT_NEAR(set.records[1].points[0].longitude, -95.9999, 1e-9);
}

TEST_F(PointChanges, EmptyNameInTheThirdRowKeepsTheSecondOnes) {
  Rows({{1, 0}, {1, 10}, {1, 20}})
      .Products({1, 0}, "One")
      .Products({1, 10}, "Two")
      .Products({1, 20}, "")
      .Implement({1, 0}, "Uno", {})
      .Implement({1, 10}, "Due", {})
      .Implement({1, 20}, "", {})
      .Implement({9, 0}, "Never", {});
  const test::ReadSet set = Exported();
  EXPECT_EQ(TrimmedColumn(set, "Product"), (Texts{"One", "Two", "Two"}));
  EXPECT_EQ(TrimmedColumn(set, "Implement"), (Texts{"Uno", "Due", "Due"}));
}

TEST_F(PointChanges, EmptyNameInTheSecondRowIsEmpty) {
  Rows({{1, 0}, {1, 10}, {1, 20}})
      .Products({1, 0}, "One")
      .Products({1, 10}, "")
      .Products({1, 20}, "Three");
  EXPECT_EQ(TrimmedColumn(Exported(), "Product"), (Texts{"One", "", "Three"}));
}

TEST_F(PointChanges, EachNameSlotKeepsItsOwnText) {
  Rows({{1, 0}, {1, 20}})
      .DesiredRates({1, 0}, 1, 1)
      .Products({1, 0}, "A1", "B1")
      .Products({1, 10}, "A2", "B2")
      .Products({1, 20}, "", "B3");
  const test::ReadSet set = Exported();
  EXPECT_EQ(TrimmedColumn(set, "Product1"), (Texts{"A1", "A2"}));
  EXPECT_EQ(TrimmedColumn(set, "Product2"), (Texts{"B1", "B3"}));
}

TEST_F(PointChanges, ShortNameIsRightJustified) {
  EXPECT_EQ(ImplementNamed("'Sprayer'"), Texts{"   Sprayer"});
}

TEST_F(PointChanges, LongNameKeepsItsFirstTenCharacters) {
  Rows({{1, 0}}).Implement({1, 0}, "FertiliserSpreader", {}).Products({1, 0}, "Ammonium sulphate");
  const test::ReadSet set = Exported();
  EXPECT_EQ(Column(set, "Implement"), Texts{"Fertiliser"});
  EXPECT_EQ(Column(set, "Product"), Texts{"Ammonium s"});
}

TEST_F(PointChanges, LongNameNeverEndsInsideACharacter) {
  EXPECT_EQ(ImplementNamed("'Feldsprit\xC3\xA4ze'"), Texts{" Feldsprit"});
}

TEST_F(PointChanges, NameEndsAtAByteZeroAndIsTrimmedThen) {
  EXPECT_EQ(ImplementNamed(Bytes("20204162632000585858")), Texts{"       Abc"});
}

TEST_F(PointChanges, NameThatBeginsWithAByteZeroIsEmpty) {
  EXPECT_EQ(ImplementNamed(Bytes("00416263")), Texts{"          "});
}

TEST_F(PointChanges, NameWithoutAByteZeroKeepsItsBlanks) {
  EXPECT_EQ(ImplementNamed("' Abc  '"), Texts{"     Abc  "});
}

TEST_F(PointChanges, NameIsCutAtTheByteZeroBeforeItsFirstTenAreTaken) {
  EXPECT_EQ(ImplementNamed(Bytes("2020202020202020202041420043")), Texts{"        AB"});
}

TEST_F(PointChanges, NameOfAByteZeroAloneReplacesTheOneBefore) {
  Rows({{1, 0}, {1, 10}, {1, 20}}).Products({1, 0}, "One").Products({1, 10}, "Two");
  builder_.Execute("INSERT INTO AsAppliedProductChangeTable VALUES (1, 20, x'00', '', '')");
  EXPECT_EQ(TrimmedColumn(Exported(), "Product"), (Texts{"One", "Two", ""}));
}

}  // namespace
}  // namespace kestrin::point
