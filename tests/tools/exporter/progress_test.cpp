#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <regex>
#include <thread>

#include "tests/support/tempFolder.h"
#include "tools/exporter/console.h"
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

TEST(ConsoleBar, TellsTheTimeThatAllSetsToComeWillTake) {
  const test::TempFolder folder;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> drawn{
      std::fopen((folder / "drawn").c_str(), "wb"), std::fclose};
  Console console(drawn.get(), drawn.get(), {.bar = true});
  console.Expect(5000);
  // Ends after a few of its rows: the others are not waited for.
  const std::size_t first = console.BeginSet("wire", "a", 1000);
  console.ShowProgress(first, 100);
  console.EndSet(first);
  const std::size_t second = console.BeginSet("poly", "a", 1000);
  std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  console.ShowProgress(second, 500);
  const std::string line = test::FileBytes(folder / "drawn");
  std::smatch told;
  ASSERT_TRUE(std::regex_search(
      line, told, std::regex("500 of 1000 rows, ([0-9]+) rows/s, 0:([0-9]+) left  poly a")))
      << line;
  EXPECT_LE(std::stoi(told[1]), 600 / 1.1);
  EXPECT_NEAR(std::stoi(told[2]), 3500 / std::stod(told[1]), 1);
  console.EndSet(second);
}

}  // namespace
}  // namespace kestrin::exporter
