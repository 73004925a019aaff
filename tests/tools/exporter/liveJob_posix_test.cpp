#include <chrono>
#include <regex>
#include <set>
#include <thread>

#include "tests/support/database.h"
#include "tests/support/fork.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/shapeReader.h"
#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

/// Jobs that another program writes to without a pause, in each way there is.
class LiveJob : public test::ExportCommand, public ::testing::WithParamInterface<const char*> {
 protected:
  LiveJob() {
    test::JobBuilder builder(folder_ / "job.sqlite");
    builder.Reference({1345, 0}, 42, -93).Implement({1345, 0}, "1", {{3, 0, 0, 0}});
    builder.Products({1345, 0}, "1").DesiredRates({1345, 0}, 1).ActualRates({1345, 0}, 1);
    for (int i = 0; i < 400; ++i) builder.Epoch({1345, i * 1000}, i, i);
    builder.Execute("UPDATE GpsDataTable SET speed = 1").Finish();
  }

  /// In every state all of the job's tables have one number in them.
  [[noreturn]] void Record() const {
    test::Database console(folder_ / "job.sqlite");
    console.Execute("PRAGMA busy_timeout=1000; PRAGMA synchronous=OFF;").Execute(GetParam());
    for (int state = 2;; ++state) {
      const std::string number = std::to_string(state % 90 + 10);
      console.Result("BEGIN IMMEDIATE");
      for (const char* change : {"ImplChangeTable SET ImplName = ", "GpsDataTable SET speed = ",
                                 "AsAppliedProductChangeTable SET ProductName0 = ",
                                 "AsAppliedActRateChangeTable SET actualRate0 = ",
                                 "AsAppliedDesRateChangeTable SET desiredRate0 = "}) {
        console.Result("UPDATE " + (change + number));
      }
      if (console.Result("COMMIT") != SQLITE_OK) console.Result("ROLLBACK");
      std::this_thread::sleep_for(std::chrono::milliseconds(4));
    }
  }

  /// The numbers that stand in the point set.
  std::set<double> States() const {
    const test::ReadSet set = test::ReadShapeSet(folder_ / "x_POINT");
    const std::set<std::string> kTold{"Speed", "Implement", "Product", "TargRate", "ActRate"};
    std::set<double> states;
    for (const auto& row : set.rows) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        const bool tells = kTold.contains(set.fields[i].name);
        if (tells) states.insert(std::stod(row[i]));
      }
    }
    return states;
  }
};

TEST_P(LiveJob, GivesSetsOfOneStateOrAWordOfIt) {
  const test::Child console(test::Fork([&]() -> int { Record(); }));
  const std::regex word(
      "kestrin-export: job.sqlite: .*(another program keeps it locked\\)|the job was written to "
      "while it was read; export it again)\n");
  int whole = 0;
  for (int run = 0; run < 15 || (whole == 0 && run < 150); ++run) {
    const test::CommandResult result =
        Run({"--quiet", "--kind", "point", "--base", "x", "job.sqlite"});
    if (result.code == 0) {
      EXPECT_EQ(States().size(), 1U) << ::testing::PrintToString(States());
      ++whole;
    } else {
      EXPECT_TRUE(std::regex_match(result.err, word)) << result.err;
      EXPECT_FALSE(Exists("x_POINT.shp") || Exists("x_POINT.shx") || Exists("x_POINT.dbf"));
    }
  }
  EXPECT_GT(whole, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Consoles, LiveJob,
    ::testing::Values("PRAGMA journal_mode=DELETE", "PRAGMA journal_mode=PERSIST",
                      "PRAGMA journal_mode=WAL; PRAGMA wal_autocheckpoint=0",
                      "PRAGMA journal_mode=WAL; PRAGMA wal_autocheckpoint=200"));

}  // namespace
}  // namespace kestrin::exporter
