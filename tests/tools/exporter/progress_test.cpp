#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/exporter/progressBar.h"

namespace kestrin::exporter {
namespace {

using ::testing::HasSubstr;

TEST(ProgressLine, ShowsRowsDoneOfTotalKindAndJob) {
  EXPECT_EQ(ProgressLine({{"wire", "North 40", 500, 2000}}, {}, 100),
            "[######..................] 500 of 2000 rows  wire North 40");
}

TEST(ProgressLine, AddsUpTheSetsOfSeveralJobs) {
  EXPECT_EQ(ProgressLine({{"wire", "a", 1000, 1000}, {"poly", "b", 0, 1000}}, {}, 100),
            "[############............] 1000 of 2000 rows  wire a, poly b");
}

TEST(ProgressLine, NeverPassesItsEndWhenTheTotalIsNotKnown) {
  EXPECT_EQ(ProgressLine({{"wire", "a", 7, 0}}, {}, 100),
            "[########################] 7 of 7 rows  wire a");
  EXPECT_THAT(ProgressLine({{"wire", "a", 0, 0}}, {}, 100), HasSubstr("[...."));
}

TEST(ProgressLine, ShowsThePaceOfTheWholeRunOnceASecondHasTold) {
  const std::vector<SetProgress> sets{{"wire", "a", 500, 1000}};
  EXPECT_EQ(ProgressLine(sets, {.done = 2500, .left = 20000, .seconds = 2}, 100),
            "[############............] 500 of 1000 rows, 1250 rows/s, 0:16 left  wire a");
  EXPECT_THAT(ProgressLine(sets, {.done = 10, .left = 37230, .seconds = 1}, 100),
              HasSubstr(" rows, 10 rows/s, 1:02:03 left  wire a"));
  for (const Pace& early : {Pace{500, 500, 0.9}, Pace{0, 500, 5}}) {
    EXPECT_THAT(ProgressLine(sets, early, 100), HasSubstr("500 of 1000 rows  wire a"));
  }
}

TEST(ProgressLine, SaysNoTimeLeftWhereMoreRowsCameThanWereKnownOf) {
  EXPECT_THAT(ProgressLine({{"wire", "a", 7, 0}}, {.done = 7, .left = -7, .seconds = 1}, 100),
              HasSubstr("7 of 7 rows, 7 rows/s  wire a"));
}

TEST(ProgressLine, IsCutToTheTerminalBetweenLetters) {
  const std::string line = ProgressLine({{"wire", "ää", 1, 2}}, {}, 49);
  EXPECT_EQ(line, "[############............] 1 of 2 rows  wire ää");
  EXPECT_EQ(ProgressLine({{"wire", "ää", 1, 2}}, {}, 46),
            "[############............] 1 of 2 rows  wire ä");
}

}  // namespace
}  // namespace kestrin::exporter
