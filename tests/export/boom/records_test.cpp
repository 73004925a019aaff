#include "export/boom/records.h"

#include <gtest/gtest.h>

#include <random>

#include "export/exportRun.h"
#include "tests/export/boom/literalBoom.h"

namespace kestrin::boom {
namespace {

/// A line that is told apart by one number.
CrossLine Line(double number) { return {{number, -number}, {number + 0.5, -number - 0.5}}; }

/// The numbers of a record's lines.
std::vector<double> NumbersOf(const Records& records, std::size_t record) {
  std::vector<double> numbers;
  records.ForEachPiece(record, [&](std::span<const CrossLine> piece) {
    for (const CrossLine& line : piece) {
      EXPECT_EQ(line.second, Line(line.first.longitude).second);
      numbers.push_back(line.first.longitude);
    }
  });
  EXPECT_EQ(numbers.size(), records.LineCount(record));
  return numbers;
}

/// One epoch of one line.
void Epoch(Records& records, double rate, double number) {
  records.Select({rate, 0, 0});
  records.Lay(Line(number));
}

using Numbers = std::vector<double>;

TEST(Records, ChangedRateBeginsARecord) {
  Records records;
  records.StartPeriod(0);
  Epoch(records, 1, 10);
  Epoch(records, 1, 11);
  Epoch(records, 2, 12);
  ASSERT_EQ(records.Count(), 2U);
  EXPECT_EQ(NumbersOf(records, 0), (Numbers{10, 11}));
  EXPECT_EQ(NumbersOf(records, 1), (Numbers{12}));
}

TEST(Records, EachPeriodBeginsARecordOfItsOwn) {
  Records records;
  records.StartPeriod(0);
  Epoch(records, 1, 10);
  records.StartPeriod(1);
  Epoch(records, 1, 11);
  ASSERT_EQ(records.Count(), 2U);
  EXPECT_EQ(records[1].entry, 1U);
}

TEST(Records, EarlierRecordTakenUpAgainGainsTheLineBeforeItAndLosesItsLast) {
  Records records;
  records.StartPeriod(0);
  Epoch(records, 9, 1);
  Epoch(records, 9, 2);
  records.StartPeriod(1);
  Epoch(records, 1, 10);
  Epoch(records, 1, 11);
  Epoch(records, 2, 20);
  Epoch(records, 1, 12);
  ASSERT_EQ(records.Count(), 3U);
  EXPECT_EQ(NumbersOf(records, 0), (Numbers{1, 2}));
  EXPECT_EQ(NumbersOf(records, 1), (Numbers{2, 10, 12}));
  EXPECT_EQ(NumbersOf(records, 2), (Numbers{20}));
  Epoch(records, 1, 13);
  EXPECT_EQ(NumbersOf(records, 1), (Numbers{2, 2, 10, 13}));
}

TEST(Records, TheLineBeforeIsTheOneThatStandsThereAtThatTime) {
  Records records;
  records.StartPeriod(0);
  Epoch(records, 9, 1);
  records.StartPeriod(1);
  Epoch(records, 1, 10);
  Epoch(records, 2, 20);
  Epoch(records, 3, 30);
  Epoch(records, 2, 21);  // gains 10
  Epoch(records, 1, 11);  // 10 becomes 11
  Epoch(records, 2, 22);  // gains 11
  EXPECT_EQ(NumbersOf(records, 1), (Numbers{1, 11}));
  EXPECT_EQ(NumbersOf(records, 2), (Numbers{11, 10, 22}));
  EXPECT_EQ(NumbersOf(records, 3), (Numbers{30}));
}

TEST(Records, LastRecordOfThePeriodGrowsAtItsEndAgain) {
  Records records;
  records.StartPeriod(0);
  Epoch(records, 9, 1);
  records.StartPeriod(1);
  Epoch(records, 1, 10);
  Epoch(records, 2, 20);
  Epoch(records, 1, 11);
  Epoch(records, 2, 21);
  EXPECT_EQ(NumbersOf(records, 2), (Numbers{20, 21}));
}

TEST(Records, FirstRecordTakenUpAgainIsASubscriptError) {
  Records records;
  records.StartPeriod(0);
  Epoch(records, 1, 10);
  Epoch(records, 2, 20);
  records.Select({1, 0, 0});
  try {
    records.Lay(Line(11));
    FAIL();
  } catch (const exports::SubscriptError& error) {
    EXPECT_STREQ(error.what(), "Subscript out of range");
  }
}

TEST(Records, AnyRecordWhoseSliceBeginsTheListIsASubscriptError) {
  Records records;
  records.StartPeriod(0);
  records.Select({1, 0, 0});  // stays empty
  records.StartPeriod(1);
  Epoch(records, 1, 10);
  Epoch(records, 2, 20);
  records.Select({1, 0, 0});
  EXPECT_THROW(records.Lay(Line(11)), exports::SubscriptError);
}

TEST(Records, TakingUpTheFirstRecordWithoutLayingALineIsNoError) {
  Records records;
  records.StartPeriod(0);
  for (const double rate : {1.0, 2.0, 1.0}) records.Select({rate, 0, 0});
  EXPECT_EQ(records.Count(), 2U);
}

TEST(Records, WithoutLinesAPeriodOfOneRateEndsWithTwoRecords) {
  Records records;
  records.StartPeriod(0);
  for (int epoch = 0; epoch < 5; ++epoch) records.Select({1, 0, 0});
  EXPECT_EQ(records.Count(), 2U);
}

TEST(Records, OneRecordIsNotSearched) {
  Records records;
  records.StartPeriod(0);
  records.Select({1, 0, 0});
  records.Select({1, 0, 0});
  EXPECT_EQ(records.Count(), 2U);
}

TEST(Records, RecordsOfOtherPeriodsAreNotTakenUp) {
  Records records;
  records.StartPeriod(0);
  Epoch(records, 1, 10);
  Epoch(records, 2, 20);
  records.StartPeriod(1);
  Epoch(records, 1, 11);
  Epoch(records, 2, 21);
  Epoch(records, 3, 31);
  EXPECT_EQ(records.Count(), 5U);
}

TEST(Records, NegativeZeroIsTheSameRate) {
  Records records;
  records.StartPeriod(0);
  Epoch(records, 5, 1);
  records.StartPeriod(1);
  Epoch(records, 0.0, 10);
  Epoch(records, 1, 20);
  Epoch(records, -0.0, 11);
  EXPECT_EQ(records.Count(), 3U);
  EXPECT_EQ(NumbersOf(records, 1), (Numbers{1, 11}));
}

TEST(Records, BoxesKeepPointsThatWereOverwritten) {
  Records records;
  records.StartPeriod(0);
  Epoch(records, 9, 1);
  records.StartPeriod(1);
  Epoch(records, 1, 100);
  Epoch(records, 2, 20);
  Epoch(records, 1, 10);
  EXPECT_EQ(NumbersOf(records, 1), (Numbers{1, 10}));
  EXPECT_EQ(records[1].box.xMin, 10);
  EXPECT_EQ(records[1].box.xMax, 100.5);
  EXPECT_EQ(records[1].box.yMin, -100.5);
  EXPECT_EQ(records.FileBox().xMax, 100.5);
  EXPECT_EQ(records.FileBox().xMin, 1);
}

TEST(Records, EmptyRecordHasAnEmptyBoxAndLeavesTheFilesBoxAlone) {
  Records records;
  records.StartPeriod(0);
  records.Select({1, 0, 0});
  EXPECT_TRUE(records.FileBox().IsEmpty());
  EXPECT_TRUE(records[0].box.IsEmpty());
  EXPECT_EQ(records.LineCount(0), 0U);
  records.StartPeriod(1);
  Epoch(records, 1, 10);
  EXPECT_EQ(records.FileBox().xMin, 10);
}

TEST(Records, SlicesLongerThanABlockComeWhole) {
  Records records;
  records.StartPeriod(0);
  Epoch(records, 9, 1);
  records.StartPeriod(1);
  Numbers expected;
  for (int i = 0; i < 40000; ++i) {
    Epoch(records, 1, i);
    expected.push_back(i);
  }
  EXPECT_EQ(NumbersOf(records, 1), expected);
}

/// The bounds of nothing are zeros in a file, and in the literal box.
void ExpectSame(const geo::Box& box, const geo::Box& literal) {
  EXPECT_EQ(box.IsEmpty() ? (geo::Box{0, 0, 0, 0}) : box, literal);
}

void ExpectEqual(const Records& records, const test::LiteralRecords& literal) {
  ASSERT_EQ(records.Count(), literal.Count());
  for (std::size_t i = 0; i < records.Count(); ++i) {
    const test::LiteralRecord& expected = literal.Record(i + 1);
    std::vector<geo::GeoPoint> points;
    records.ForEachPiece(i, [&](std::span<const CrossLine> piece) {
      for (const auto& [first, second] : piece) points.insert(points.end(), {first, second});
    });
    EXPECT_EQ(points, literal.PointsOf(i + 1)) << "record " << i;
    EXPECT_EQ(records[i].entry, expected.entry);
    EXPECT_EQ(records[i].rates, expected.rates);
    ExpectSame(records[i].box, expected.box);
  }
  ExpectSame(records.FileBox(), literal.FileBox());
}

/// A random history in both; false when it ended with a subscript error in both.
bool SameHistory(unsigned seed) {
  std::mt19937 random(seed);
  const auto Upto = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
  Records records;
  test::LiteralRecords literal;
  // Many begin with a lone record, so that the slots before the others exist.
  const bool leader = Upto(3) != 0;
  const int rateCount = 1 + Upto(4);
  const int periods = 1 + Upto(3);
  for (int period = 0; period < periods; ++period) {
    records.StartPeriod(static_cast<std::size_t>(period));
    literal.StartPeriod(static_cast<std::size_t>(period));
    const bool alone = leader && period == 0;
    const int sections = alone ? 1 : Upto(3);
    const int epochs = Upto(30);
    for (int epoch = 0; epoch < epochs; ++epoch) {
      const std::array<double, 3> rates{alone ? 0.0 : Upto(rateCount), 0,
                                        1.0 * Upto(alone ? 0 : 1)};
      records.Select(rates);
      literal.Decide(rates);
      for (int section = 0; section < sections; ++section) {
        const CrossLine line{{1.0 * Upto(1000), 1.0 * Upto(1000)},
                             {1.0 * Upto(1000), 1.0 * Upto(3)}};
        bool failed = false;
        try {
          literal.Place(line.first, line.second);
        } catch (const exports::SubscriptError&) {
          failed = true;
        }
        if (failed) {
          EXPECT_THROW(records.Lay(line), exports::SubscriptError);
          return false;
        }
        records.Lay(line);
      }
    }
  }
  ExpectEqual(records, literal);
  return true;
}

TEST(Records, RandomHistoriesEqualTheSlotsMovedOneByOne) {
  int completed = 0;
  for (unsigned seed = 0; seed < 6000; ++seed) {
    if (SameHistory(seed)) ++completed;
    ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed;
  }
  // Both ends are well covered.
  EXPECT_GT(completed, 2000);
  EXPECT_LT(completed, 5500);
}

}  // namespace
}  // namespace kestrin::boom
