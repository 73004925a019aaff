#include "export/boom/table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/export/boom/boomFixture.h"

namespace kestrin::boom {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class BoomAttributes : public test::BoomFixture {};

TEST_F(BoomAttributes, TableShowsImplementProductsAndRatesOfThePeriod) {
  ReferenceAndDisc();
  builder_.Products(kStart, "Urea", "Potash", "Lime").DesiredRates(kStart, 100, 50.5, 25.25);
  builder_.ActualRates(kStart, 99.994, 50, 25.126);
  builder_.Epoch(kStart, 0, 0);
  EXPECT_THAT(
      ExportedSet().shapes.at(0).fields,
      ElementsAre("       0", "      Disc", "      Urea", "       100", "     99.99", "    Potash",
                  "      50.5", "        50", "      Lime", "     25.25", "     25.13"));
}

TEST_F(BoomAttributes, IdsCountFromZeroAndRecordsFromOne) {
  ReferenceAndDisc();
  for (int i = 0; i < 2; ++i) builder_.ActualRates(After(i), i).Epoch(After(i), 0, 0);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(2));
  // The reader insists on record numbers from 1.
  EXPECT_EQ(set.shapes[0].fields[0], "       0");
  EXPECT_EQ(set.shapes[1].fields[0], "       1");
}

TEST_F(BoomAttributes, DesiredRatesOfZeroAreReportedWithThoseBefore) {
  ReferenceAndDisc();
  builder_.DesiredRates(kStart, 100, 50, 25).DesiredRates(After(1), 0, 0, 0);
  for (int i = 0; i < 2; ++i) builder_.Epoch(After(i), 0, 0);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(2));
  EXPECT_EQ(set.shapes[1].TargetRate(0), "       100");
  EXPECT_EQ(set.shapes[1].TargetRate(2), "        25");
}

TEST_F(BoomAttributes, NamesKeepTheirFirstTenCharactersAndShorterOnesStandRight) {
  ReferenceOnly();
  builder_.Implement(kStart, "  Sprayer of 24 m ", {{4, 0, 0, 0}});
  builder_.Products(kStart, "Ammonium sulphate", "TenLetters", " Lime ");
  builder_.Epoch(kStart, 0, 0);
  const test::BoomShape shape = ExportedSet().shapes.at(0);
  EXPECT_EQ(shape.Implement(), "Sprayer of");
  EXPECT_EQ(shape.Product(0), "Ammonium s");
  EXPECT_EQ(shape.Product(1), "TenLetters");
  EXPECT_EQ(shape.Product(2), "     Lime ");
}

TEST_F(BoomAttributes, NamesNeverEndInsideACharacter) {
  ReferenceOnly();
  builder_.Implement(kStart, "123456789\xC3\xA9", {{4, 0, 0, 0}});
  builder_.Epoch(kStart, 0, 0);
  EXPECT_EQ(ExportedSet().shapes.at(0).Implement(), " 123456789");
}

TEST_F(BoomAttributes, RateTooLongForItsFieldKeepsItsFirstCharacters) {
  ReferenceAndDisc();
  builder_.DesiredRates(kStart, 12345678.25, 12345678901.5).ActualRates(kStart, 98765432.75);
  builder_.Epoch(kStart, 0, 0);
  const test::BoomShape shape = ExportedSet().shapes.at(0);
  EXPECT_EQ(shape.ActualRate(0), "98765432.7");
  EXPECT_EQ(shape.TargetRate(0), "12345678.2");
  EXPECT_EQ(shape.TargetRate(1), "1234567890");
}

/// The row of a record of the only period there is.
std::string RowOf(std::size_t id, double actualRate) {
  Timeline timeline;
  timeline.AppendDesiredRates({{1, 0}, {1, 0, 0}});
  timeline.Close();
  Records::Record record;
  record.rates[0] = actualRate;
  return std::string(Table(timeline).RowOf(id, record));
}

TEST(BoomTable, IdOfMoreThanEightDigitsKeepsItsLastEight) {
  EXPECT_EQ(RowOf(123456789, 0).substr(1, 8), "23456789");
}

TEST(BoomTable, ActualRatesAreRoundedToTwoDecimals) {
  EXPECT_EQ(RowOf(0, 0.126).substr(39, 10), "      0.13");
}

TEST_F(BoomAttributes, ImplementOfBlanksTakesNameAndSetupOfTheOneBefore) {
  ReferenceAndDisc();
  builder_.Implement(After(1), "  ", {{8, 0, 0, 0}});
  for (int i = 0; i < 2; ++i) builder_.Epoch(After(i), 0, 0);
  const test::BoomSet set = ExportedSet();
  ASSERT_THAT(set.shapes, SizeIs(2));
  EXPECT_EQ(set.shapes[1].Implement(), "      Disc");
  EXPECT_THAT(Easts(set.shapes[1]), ElementsAre(2, -2));
}

}  // namespace
}  // namespace kestrin::boom
