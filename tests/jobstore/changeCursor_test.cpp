#include "jobstore/changeCursor.h"

#include <gtest/gtest.h>

#include <vector>

#include "jobstore/queries.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::jobstore {
namespace {

using Rates = ChangeCursor<DesiredRates>;
using LastlessRates = ChangeCursor<DesiredRates, LastChange::kNeverApplies>;

/// A job with one rate change per key, the rate its number from 1 on.
class RateChanges {
 public:
  explicit RateChanges(const std::vector<GpsKey>& keys) : job_(Make(keys)) {}
  Job& Opened() { return job_; }

 private:
  std::string Make(const std::vector<GpsKey>& keys) {
    test::JobBuilder builder(folder_ / "job.sqlite");
    double rate = 0;
    for (const GpsKey key : keys) builder.DesiredRates(key, ++rate);
    return builder.Finish();
  }

  test::TempFolder folder_;
  Job job_;
};

/// Rate in force after advancing to each of the times in turn.
template <class Cursor>
std::vector<double> InForce(Cursor& cursor, const std::vector<GpsKey>& times) {
  std::vector<double> rates;
  for (const GpsKey time : times) {
    cursor.AdvanceTo(time);
    rates.push_back(cursor.Current().rates[0]);
  }
  return rates;
}

TEST(ChangeCursor, WithoutRowsStaysAtItsEmptyValue) {
  RateChanges changes({});
  Rates cursor(changes.Opened());
  EXPECT_TRUE(cursor.Prepared());
  EXPECT_FALSE(cursor.HasCurrent());
  EXPECT_EQ(InForce(cursor, {{1, 0}, {99, 0}}), (std::vector<double>{0, 0}));
}

TEST(ChangeCursor, WithoutATableStaysAtItsEmptyValue) {
  const test::TempFolder folder;
  Job job(test::JobBuilder(folder / "a.sqlite")
              .Execute("DROP TABLE AsAppliedDesRateChangeTable")
              .Finish());
  Rates cursor(job);
  EXPECT_FALSE(cursor.Prepared());
  EXPECT_LT(cursor.Result(), 0);
  EXPECT_FALSE(cursor.HasCurrent());
  EXPECT_EQ(InForce(cursor, {{1, 0}}), (std::vector<double>{0}));
}

TEST(ChangeCursor, TheFirstRowIsInForceFromTheStart) {
  RateChanges changes({{5, 0}, {6, 0}});
  Rates cursor(changes.Opened());
  EXPECT_TRUE(cursor.HasCurrent());
  EXPECT_EQ(InForce(cursor, {{1, 0}, {5, 0}, {5, 9}}), (std::vector<double>{1, 1, 1}));
}

TEST(ChangeCursor, AChangeAppliesFromExactlyItsKeyOn) {
  RateChanges changes({{5, 0}, {5, 100}, {6, 50}});
  Rates cursor(changes.Opened());
  EXPECT_EQ(InForce(cursor, {{5, 99}, {5, 100}, {5, 101}, {6, 49}, {6, 50}}),
            (std::vector<double>{1, 2, 2, 2, 3}));
}

TEST(ChangeCursor, ALaterWeekPassesAChangeWhateverTheMillisecond) {
  RateChanges changes({{5, 0}, {5, 900}});
  Rates cursor(changes.Opened());
  EXPECT_EQ(InForce(cursor, {{6, 0}}), (std::vector<double>{2}));
}

TEST(ChangeCursor, SeveralChangesPassedAreReportedOldestFirst) {
  RateChanges changes({{5, 0}, {5, 1}, {5, 2}, {7, 0}});
  Rates cursor(changes.Opened());
  std::vector<double> seen;
  cursor.AdvanceTo({6, 0}, [&](const RatesRow& row) { seen.push_back(row.rates[0]); });
  EXPECT_EQ(seen, (std::vector<double>{2, 3}));
  EXPECT_EQ(cursor.Current().rates[0], 3);
}

TEST(ChangeCursor, OfEqualKeysTheLastEnteredWins) {
  RateChanges changes({{5, 10}, {5, 10}, {5, 10}});
  Rates cursor(changes.Opened());
  EXPECT_EQ(InForce(cursor, {{5, 9}, {5, 10}}), (std::vector<double>{1, 3}));
}

TEST(ChangeCursor, WithoutAChangeNothingIsReported) {
  RateChanges changes({{5, 0}, {6, 0}});
  Rates cursor(changes.Opened());
  int reported = 0;
  for (const GpsKey time : {GpsKey{5, 5}, GpsKey{6, 0}, GpsKey{6, 1}, GpsKey{7, 0}}) {
    cursor.AdvanceTo(time, [&](const RatesRow&) { ++reported; });
  }
  EXPECT_EQ(reported, 1);
}

TEST(ChangeCursor, AnEmptyNameKeepsTheTextOfTheRowBefore) {
  const test::TempFolder folder;
  Job job(test::JobBuilder(folder / "a.sqlite")
              .Products({1, 0}, "one", "uno")
              .Products({2, 0}, "two", "dos")
              .Products({3, 0}, "", "tres")
              .Products({4, 0}, "four", "")
              .Finish());
  ChangeCursor<Products> cursor(job);
  cursor.AdvanceTo({3, 0});
  EXPECT_EQ(cursor.Current().names[0], "two");
  EXPECT_EQ(cursor.Current().names[1], "tres");
  cursor.AdvanceTo({4, 0});
  EXPECT_EQ(cursor.Current().names[0], "four");
  EXPECT_EQ(cursor.Current().names[1], "tres");
}

TEST(ChangeCursor, AnEmptyNameInTheSecondRowIsEmpty) {
  const test::TempFolder folder;
  Job job(
      test::JobBuilder(folder / "a.sqlite").Products({1, 0}, "one").Products({2, 0}, "").Finish());
  ChangeCursor<Products> cursor(job);
  EXPECT_EQ(cursor.Current().names[0], "one");
  cursor.AdvanceTo({2, 0});
  EXPECT_EQ(cursor.Current().names[0], "");
}

TEST(LastChangeNeverApplies, WithoutRowsStaysAtItsEmptyValue) {
  RateChanges changes({});
  LastlessRates cursor(changes.Opened());
  EXPECT_FALSE(cursor.HasCurrent());
  EXPECT_EQ(InForce(cursor, {{9, 0}}), (std::vector<double>{0}));
}

TEST(LastChangeNeverApplies, TheOnlyRowIsInForce) {
  RateChanges changes({{5, 0}});
  LastlessRates cursor(changes.Opened());
  EXPECT_TRUE(cursor.HasCurrent());
  EXPECT_EQ(InForce(cursor, {{1, 0}, {9, 0}}), (std::vector<double>{1, 1}));
}

TEST(LastChangeNeverApplies, TheSecondOfTwoRowsIsNeverInForce) {
  RateChanges changes({{5, 0}, {6, 0}});
  LastlessRates cursor(changes.Opened());
  EXPECT_EQ(InForce(cursor, {{5, 0}, {6, 0}, {9, 0}}), (std::vector<double>{1, 1, 1}));
}

TEST(LastChangeNeverApplies, OfThreeRowsTheSecondAppliesAndTheThirdDoesNot) {
  RateChanges changes({{5, 0}, {6, 0}, {7, 0}});
  LastlessRates cursor(changes.Opened());
  EXPECT_EQ(InForce(cursor, {{5, 9}, {6, 0}, {7, 0}, {9, 0}}), (std::vector<double>{1, 2, 2, 2}));
}

TEST(LastChangeNeverApplies, SkippingEverythingAtOnceEndsBeforeTheLast) {
  RateChanges changes({{5, 0}, {5, 0}, {5, 0}});
  LastlessRates cursor(changes.Opened());
  std::vector<double> seen;
  cursor.AdvanceTo({9, 0}, [&](const RatesRow& row) { seen.push_back(row.rates[0]); });
  EXPECT_EQ(seen, (std::vector<double>{2}));
}

}  // namespace
}  // namespace kestrin::jobstore
