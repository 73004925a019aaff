#include "export/boom/timeline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/export/boom/literalBoom.h"

namespace kestrin::boom {
namespace {

jobstore::ProductsRow Named(jobstore::GpsKey time, const std::string& name) {
  return {time, {name, "", ""}};
}

jobstore::ImplementRow Implement(jobstore::GpsKey time, const std::string& name, double width = 1) {
  jobstore::ImplementRow row;
  row.time = time;
  row.name = name;
  for (jobstore::Section& section : row.sections) section.width = -1;
  row.sections[0].width = width;
  return row;
}

std::vector<jobstore::GpsKey> Times(const Timeline& timeline) {
  std::vector<jobstore::GpsKey> times;
  for (const TimelineEntry& entry : timeline.Entries()) times.push_back(entry.time);
  return times;
}

Timeline Filled(const std::vector<jobstore::RatesRow>& rates,
                const std::vector<jobstore::ProductsRow>& products,
                const std::vector<jobstore::ImplementRow>& implements) {
  Timeline timeline;
  for (const auto& row : rates) timeline.AppendDesiredRates(row);
  for (const auto& row : products) timeline.MergeProducts(row);
  for (const auto& row : implements) timeline.MergeImplement(row);
  timeline.Close();
  timeline.FillForward();
  return timeline;
}

TEST(Timeline, EachDesiredRateRowMakesAnEntryAlsoAtTheSameTime) {
  const Timeline timeline = Filled({{{1, 5}, {1, 0, 0}}, {{1, 5}, {2, 0, 0}}}, {}, {});
  EXPECT_EQ(Times(timeline), (std::vector<jobstore::GpsKey>{{1, 5}, {1, 5}}));
  EXPECT_EQ(timeline.Entries()[0].desiredRates[0], 1);
  EXPECT_EQ(timeline.Entries()[1].desiredRates[0], 2);
}

TEST(Timeline, FirstEntryOfTheSameTimeReceives) {
  const Timeline timeline =
      Filled({{{1, 5}, {1, 0, 0}}, {{1, 5}, {2, 0, 0}}}, {Named({1, 5}, "Urea")}, {});
  EXPECT_NE(timeline.Entries()[0].products, 0U);
  // The second has its own by filling forward.
  EXPECT_EQ(timeline.ProductsOf(timeline.Entries()[1])[0], "Urea");
  Timeline unfilled;
  unfilled.AppendDesiredRates({{1, 5}, {1, 0, 0}});
  unfilled.AppendDesiredRates({{1, 5}, {2, 0, 0}});
  unfilled.MergeProducts(Named({1, 5}, "Urea"));
  unfilled.Close();
  EXPECT_EQ(unfilled.Entries()[1].products, 0U);
}

TEST(Timeline, ProductGoesBeforeTheFirstLaterEntry) {
  const Timeline timeline = Filled({{{1, 5}, {1, 0, 0}}, {{2, 3}, {2, 0, 0}}},
                                   {Named({1, 9}, "A"), Named({2, 1}, "B")}, {});
  EXPECT_EQ(Times(timeline), (std::vector<jobstore::GpsKey>{{1, 5}, {1, 9}, {2, 1}, {2, 3}}));
}

TEST(Timeline, RowLaterThanAllEntriesIsAppended) {
  const Timeline timeline =
      Filled({{{1, 5}, {1, 0, 0}}}, {Named({1, 6}, "A")}, {Implement({3, 0}, "Disc")});
  EXPECT_EQ(Times(timeline), (std::vector<jobstore::GpsKey>{{1, 5}, {1, 6}, {3, 0}}));
}

TEST(Timeline, LaterRowOfTheSameTimeReplacesTheNames) {
  const Timeline timeline = Filled({}, {Named({1, 5}, "A"), Named({1, 5}, "B")}, {});
  ASSERT_EQ(timeline.Entries().size(), 1U);
  EXPECT_EQ(timeline.ProductsOf(timeline.Entries()[0])[0], "B");
}

TEST(Timeline, LackingProductsComeFromTheEntryBefore) {
  const Timeline timeline =
      Filled({{{1, 5}, {1, 0, 0}}, {{1, 7}, {2, 0, 0}}}, {Named({1, 5}, "A")}, {});
  EXPECT_EQ(timeline.ProductsOf(timeline.Entries()[1])[0], "A");
}

TEST(Timeline, OneNamedProductKeepsTheOthersEmpty) {
  const Timeline timeline = Filled({}, {{{1, 5}, {"A", "B", "C"}}, {{1, 6}, {"", "D", ""}}}, {});
  EXPECT_EQ(timeline.ProductsOf(timeline.Entries()[1]), (ProductNames{"", "D", ""}));
}

TEST(Timeline, DesiredRatesSetToZeroAreReplacedByThoseBefore) {
  const Timeline timeline =
      Filled({{{1, 5}, {10, 20, 30}}, {{1, 7}, {0, 0, 0}}, {{1, 9}, {0, -0.0, 1e-9}}}, {}, {});
  EXPECT_EQ(timeline.Entries()[1].desiredRates[2], 30);
  // Exactly 0 as stored: what the table shows as 0 is kept.
  EXPECT_EQ(timeline.Entries()[2].desiredRates[0], 0);
  EXPECT_EQ(timeline.Entries()[2].desiredRates[2], 1e-9);
}

TEST(Timeline, ImplementWithoutNameTakesTheOneBefore) {
  const Timeline timeline =
      Filled({}, {}, {Implement({1, 5}, "Disc", 3), Implement({1, 6}, "   ", 8)});
  const ImplementSetup& setup = timeline.ImplementOf(timeline.Entries()[1]);
  EXPECT_EQ(setup.name, "Disc");
  EXPECT_EQ(setup.sections[0].halfWidth, 1.5);
}

TEST(Timeline, FirstImplementKeepsItsSetupWithoutAName) {
  const Timeline timeline = Filled({}, {}, {Implement({1, 5}, "", 3)});
  ASSERT_EQ(timeline.ImplementOf(timeline.Entries()[0]).sections.size(), 1U);
}

TEST(Timeline, SetupOfANamelessFirstImplementIsHandedOn) {
  const Timeline timeline = Filled({{{1, 9}, {1, 0, 0}}}, {}, {Implement({1, 5}, "", 3)});
  EXPECT_EQ(timeline.ImplementOf(timeline.Entries()[1]).sections.size(), 1U);
}

TEST(Timeline, EntryBeforeAnyImplementHasNoSections) {
  const Timeline timeline = Filled({{{1, 1}, {1, 0, 0}}}, {}, {Implement({1, 5}, "Disc")});
  EXPECT_TRUE(timeline.ImplementOf(timeline.Entries()[0]).sections.empty());
  EXPECT_EQ(timeline.ImplementOf(timeline.Entries()[1]).sections.size(), 1U);
}

TEST(Timeline, ImplementNameLosesOuterBlanksAndProductNamesDoNot) {
  const Timeline timeline =
      Filled({}, {Named({1, 5}, " Urea ")}, {Implement({1, 5}, "  Air Seeder ")});
  EXPECT_EQ(timeline.ImplementOf(timeline.Entries()[0]).name, "Air Seeder");
  EXPECT_EQ(timeline.ProductsOf(timeline.Entries()[0])[0], " Urea ");
}

TEST(Timeline, KeepsOfLongNamesWhatASetShows) {
  const std::string longName(1'000'000, 'x');
  const Timeline timeline = Filled({}, {Named({1, 5}, longName)}, {Implement({1, 5}, longName)});
  EXPECT_EQ(timeline.ImplementOf(timeline.Entries()[0]).name, "xxxxxxxxxx");
  EXPECT_EQ(timeline.ProductsOf(timeline.Entries()[0])[0], "xxxxxxxxxx");
}

TEST(Timeline, ProductOfBlanksAloneIsAName) {
  const Timeline timeline = Filled({}, {Named({1, 5}, "A"), Named({1, 6}, " ")}, {});
  EXPECT_EQ(timeline.ProductsOf(timeline.Entries()[1])[0], " ");
}

TEST(Timeline, UsedSectionsAreThoseOfWidthZeroOrMoreInSlotOrder) {
  jobstore::ImplementRow row;
  for (jobstore::Section& section : row.sections) section.width = -1;
  row.sections[2] = {0, 7, 8, 9};
  row.sections[15] = {6, 1, 2, 3};
  const ImplementSetup setup = SetupOf(row);
  ASSERT_EQ(setup.sections.size(), 2U);
  EXPECT_EQ(setup.sections[0].halfWidth, 0);
  EXPECT_EQ(setup.sections[0].xOffset, 7);
  EXPECT_EQ(setup.sections[0].yOffset, 8);
  EXPECT_EQ(setup.sections[1].halfWidth, 3);
}

TEST(Timeline, SectionOfAnyNegativeWidthIsAbsent) {
  EXPECT_TRUE(SetupOf(Implement({1, 5}, "Disc", -0.5)).sections.empty());
}

/// Rows of random times in order, few enough for many to be equal.
template <class Row>
std::vector<Row> RandomRows(std::mt19937& random, int count) {
  std::vector<Row> rows(static_cast<std::size_t>(count));
  for (Row& row : rows) {
    row.time = {std::uniform_int_distribution(1, 3)(random),
                std::uniform_int_distribution(0, 9)(random)};
  }
  std::sort(rows.begin(), rows.end(), [](auto& a, auto& b) { return a.time < b.time; });
  return rows;
}

void ExpectLiteral(const std::vector<jobstore::RatesRow>& rates,
                   const std::vector<jobstore::ProductsRow>& products,
                   const std::vector<jobstore::ImplementRow>& implements) {
  const Timeline timeline = Filled(rates, products, implements);
  const auto literal = test::LiteralTimeline(rates, products, implements);
  ASSERT_EQ(timeline.Entries().size() + 1, literal.size());
  for (std::size_t i = 0; i < timeline.Entries().size(); ++i) {
    const TimelineEntry& entry = timeline.Entries()[i];
    const test::LiteralEntry& expected = literal[i + 1];
    EXPECT_EQ(entry.time, expected.time);
    EXPECT_EQ(entry.desiredRates, expected.desiredRates);
    EXPECT_EQ(timeline.ProductsOf(entry), expected.products);
    EXPECT_EQ(timeline.ImplementOf(entry).name, expected.implementName);
    EXPECT_EQ(entry.implement, expected.setup);
  }
}

TEST(Timeline, MillionRowsInTheWorstOrderFindTheirPlaces) {
  constexpr std::int32_t kRows = 1'000'000;
  Timeline timeline;
  for (std::int32_t i = 0; i < kRows; ++i) timeline.AppendDesiredRates({{1, i % 1000}, {}});
  for (std::int32_t i = kRows; i > 0; --i) timeline.MergeProducts(Named({2, i}, "A"));
  for (std::int32_t i = kRows; i > 0; --i) timeline.MergeImplement(Implement({0, i}, "Disc"));
  timeline.Close();
  EXPECT_EQ(timeline.Entries().size(), 3U * kRows);
}

class RandomTimeline : public testing::TestWithParam<bool> {};

TEST_P(RandomTimeline, EqualsTheOneScannedFromTheFront) {
  std::mt19937 random(7);
  for (int round = 0; round < 3000; ++round) {
    const auto Upto = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
    auto rates = RandomRows<jobstore::RatesRow>(random, Upto(12));
    for (jobstore::RatesRow& row : rates) row.rates = {1.0 * Upto(1), 1.0 * Upto(1), 0};
    auto products = RandomRows<jobstore::ProductsRow>(random, Upto(12));
    for (jobstore::ProductsRow& row : products)
      row.names = {Upto(1) ? "A" : "", Upto(1) ? "B" : "", ""};
    auto implements = RandomRows<jobstore::ImplementRow>(random, Upto(12));
    for (jobstore::ImplementRow& row : implements) row.name = Upto(1) ? "Disc" : " ";
    if (GetParam()) {
      std::shuffle(rates.begin(), rates.end(), random);
      std::shuffle(products.begin(), products.end(), random);
      std::shuffle(implements.begin(), implements.end(), random);
    }
    ExpectLiteral(rates, products, implements);
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(RowOrder, RandomTimeline, testing::Bool(),
                         [](const auto& order) { return order.param ? "Broken" : "Ascending"; });

}  // namespace
}  // namespace kestrin::boom
