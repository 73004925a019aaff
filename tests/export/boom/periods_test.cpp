#include "export/boom/periods.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <tuple>

#include "jobstore/periodEpochs.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/recordingHost.h"
#include "tests/support/tempFolder.h"

namespace kestrin::boom {
namespace {

std::vector<TimelineEntry> EntriesAt(const std::vector<jobstore::GpsKey>& times) {
  std::vector<TimelineEntry> entries;
  for (const jobstore::GpsKey time : times) entries.push_back({time, {}, 0, 0});
  return entries;
}

/// What of an epoch the sets depend on; `east` tells epochs of one time apart.
using Seen = std::tuple<jobstore::GpsKey, double, double, double>;

Seen SeenOf(const Periods::Row& row) { return {row.time, row.east, row.north, row.yaw}; }

std::vector<std::vector<Seen>> ByScan(jobstore::Job& job,
                                      const std::vector<TimelineEntry>& entries) {
  Periods periods(job, entries);
  std::vector<std::vector<Seen>> rows(entries.size());
  for (std::size_t k = 0; k < entries.size(); ++k) {
    for (Periods::Row row; periods.Next(k, row);) rows[k].push_back(SeenOf(row));
  }
  EXPECT_EQ(periods.LastStep(), jobstore::kDone);
  return rows;
}

template <class... Numbers>
std::vector<Seen> Selected(jobstore::Job& job, const Numbers&... numbers) {
  std::vector<Seen> rows;
  jobstore::Query<jobstore::PeriodEpochs> query(job, numbers...);
  for (Periods::Row row; query.Next(row);) rows.push_back(SeenOf(row));
  return rows;
}

std::vector<std::vector<Seen>> ByQuery(jobstore::Job& job,
                                       const std::vector<TimelineEntry>& entries) {
  std::vector<std::vector<Seen>> rows;
  for (std::size_t k = 0; k < entries.size(); ++k) {
    rows.push_back(k + 1 < entries.size() ? Selected(job, entries[k].time, entries[k + 1].time)
                                          : Selected(job, entries[k].time));
  }
  return rows;
}

/// Milliseconds of the epochs of each period.
std::vector<std::vector<std::int32_t>> Msecs(const std::vector<jobstore::GpsKey>& epochs,
                                             const std::vector<jobstore::GpsKey>& changes) {
  const test::TempFolder folder;
  test::JobBuilder builder(folder / "job.sqlite");
  for (const jobstore::GpsKey time : epochs) builder.Epoch(time, 0, 0);
  jobstore::Job job(builder.Finish());
  std::vector<std::vector<std::int32_t>> msecs;
  for (const auto& rows : ByScan(job, EntriesAt(changes))) {
    msecs.emplace_back();
    for (const Seen& row : rows) msecs.back().push_back(std::get<0>(row).gpsMsec);
  }
  return msecs;
}

using Lists = std::vector<std::vector<std::int32_t>>;

TEST(Periods, EpochsBeforeTheFirstChangeBelongToNone) {
  EXPECT_EQ(Msecs({{5, 1}, {5, 2}, {5, 3}}, {{5, 2}}), (Lists{{2, 3}}));
}

TEST(Periods, ChangeTakesTheEpochOfItsOwnTime) {
  EXPECT_EQ(Msecs({{5, 1}, {5, 2}, {5, 3}}, {{5, 1}, {5, 3}}), (Lists{{1, 2}, {3}}));
}

TEST(Periods, FirstOfTwoChangesOfOneTimeHasNoEpochs) {
  EXPECT_EQ(Msecs({{5, 1}, {5, 2}}, {{5, 1}, {5, 1}}), (Lists{{}, {1, 2}}));
}

TEST(Periods, PeriodIntoALaterWeekLosesItsOwnWeekFromTheNextChangesMillisecondOn) {
  EXPECT_EQ(
      Msecs({{5, 10}, {5, 49}, {5, 50}, {5, 90}, {6, 90}, {7, 49}, {7, 50}}, {{5, 10}, {7, 50}}),
      (Lists{{10, 49, 90, 49}, {50}}));
}

TEST(Periods, PeriodThatStartsAfterTheNextChangesMillisecondLosesItsWholeWeek) {
  EXPECT_EQ(Msecs({{5, 60}, {5, 70}, {6, 10}}, {{5, 60}, {6, 50}}), (Lists{{10}, {}}));
}

TEST(Periods, LastPeriodHasNoEnd) {
  EXPECT_EQ(Msecs({{5, 60}, {9, 1}}, {{5, 60}}), (Lists{{60, 1}}));
}

TEST(Periods, PeriodsAfterTheLastEpochAreEmpty) {
  EXPECT_EQ(Msecs({{5, 60}}, {{5, 1}, {6, 1}, {7, 1}}), (Lists{{}, {}, {}}));
}

TEST(Periods, QueryOfOneIntoALaterWeekKeepsTheEndBoundInItsFirstWeek) {
  EXPECT_EQ(jobstore::PeriodEpochs::Text({1042, 3000}, {1044, 50}),
            "Select gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type, boomStatusBitfield From "
            "GpsDataTable Where type & 8192 And ((gpsWeek = 1042 And gpsMsec >= 3000 And gpsMsec "
            "< 50) Or (gpsWeek > 1042 And gpsWeek < 1044) Or (gpsWeek > 1042 And gpsWeek = 1044 "
            "And gpsMsec < 50)) Order By gpsWeek, gpsMsec");
}

TEST(Periods, QueryOfOneWithinAWeekAndOfTheLastHaveNoMoreThanTheyNeed) {
  EXPECT_EQ(jobstore::PeriodEpochs::Text({1042, 3000}, {1042, 4000}),
            "Select gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type, boomStatusBitfield From "
            "GpsDataTable Where type & 8192 And ((gpsWeek = 1042 And gpsMsec >= 3000 And gpsMsec "
            "< 4000)) Order By gpsWeek, gpsMsec");
  EXPECT_EQ(jobstore::PeriodEpochs::Text({-1, 3000}),
            "Select gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type, boomStatusBitfield From "
            "GpsDataTable Where type & 8192 And (gpsWeek > -1 Or (gpsWeek = -1 And gpsMsec >= "
            "3000)) Order By gpsWeek, gpsMsec");
}

TEST(Periods, EqualTheQueryOfEachPeriodOnRandomJobs) {
  std::mt19937 random(11);
  const auto Upto = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
  const test::TempFolder folder;
  for (int round = 0; round < 60; ++round) {
    test::JobBuilder builder(folder / ("job" + std::to_string(round) + ".sqlite"));
    for (int i = Upto(60); i > 0; --i) {
      jobstore::EpochRow row;
      row.time = {Upto(4), Upto(12)};
      row.east = i;
      row.type = Upto(5) == 0 ? 1 : test::kTakesPart;
      builder.Epoch(row);
    }
    jobstore::Job job(builder.Finish());
    for (int timeline = 0; timeline < 10; ++timeline) {
      std::vector<jobstore::GpsKey> times;
      for (int i = Upto(10); i > 0; --i) times.push_back({Upto(4), Upto(12)});
      std::sort(times.begin(), times.end());
      const auto entries = EntriesAt(times);
      ASSERT_EQ(ByScan(job, entries), ByQuery(job, entries)) << "job " << round;
    }
  }
}

/// Tables as no console declares them, with keys as none writes them.
class AbsurdJob {
 public:
  AbsurdJob(unsigned seed, test::JobBuilder& builder) : random_(seed), builder_(builder) {
    Make("GpsDataTable", "e_I_B__B2, n_I_B__B2, d_I_B__B2, yaw, type, boomStatusBitfield");
    for (int row = 1 + Upto(40); row > 0; --row) {
      Insert("GpsDataTable", std::to_string(row) + ", 0, 0, 0, 8192, 0");
    }
    Make("AsAppliedDesRateChangeTable", "desiredRate0, desiredRate1, desiredRate2");
    for (int row = Upto(8); row > 0; --row) Insert("AsAppliedDesRateChangeTable", "1, 2, 3");
    Make("AsAppliedProductChangeTable", "ProductName0, ProductName1, ProductName2");
    for (int row = Upto(3); row > 0; --row) Insert("AsAppliedProductChangeTable", "'a', 'b', 'c'");
  }

 private:
  int Upto(int most) { return std::uniform_int_distribution(0, most)(random_); }

  template <std::size_t size>
  std::string OneOf(const std::array<const char*, size>& texts) {
    return texts[static_cast<std::size_t>(Upto(size - 1))];
  }

  std::string Column(const char* name) {
    static constexpr std::array kTypes{"integer",
                                       "integer",
                                       "text",
                                       "real",
                                       "text collate rtrim",
                                       "blob",
                                       "",
                                       "varchar(8)",
                                       "text collate nocase",
                                       "numeric",
                                       "charint"};
    return std::string(name) + " " + OneOf(kTypes);
  }

  void Make(const std::string& table, const std::string& others) {
    builder_.Execute("DROP TABLE " + table + "; CREATE TABLE " + table + " (" + Column("gpsWeek") +
                     ", " + Column("gpsMsec") + ", " + others + ")");
    wild_ = Upto(2);
  }

  std::string Key() {
    static constexpr std::array kKeys{"NULL",
                                      "NULL",
                                      "''",
                                      "'abc'",
                                      "'2'",
                                      "'2 '",
                                      "' 2'",
                                      "'10'",
                                      "'2.5'",
                                      "x'32'",
                                      "4294967298",
                                      "-4294967293",
                                      "9e999",
                                      "-9e999",
                                      "2.5",
                                      "-1",
                                      "3.0",
                                      "1e300",
                                      "9223372036854775807",
                                      "'-3'",
                                      "0.5"};
    const bool wild = wild_ == 2 || (wild_ == 1 && Upto(9) == 0);
    return wild && Upto(1) == 0 ? OneOf(kKeys) : std::to_string(Upto(4));
  }

  void Insert(const std::string& table, const std::string& others) {
    builder_.Execute("INSERT INTO " + table + " VALUES (" + Key() + ", " + Key() + ", " + others +
                     ")");
  }

  std::mt19937 random_;
  test::JobBuilder& builder_;
  int wild_ = 0;
};

TEST(Periods, EqualTheQueryOfEachPeriodWhateverTheKeysAre) {
  const test::TempFolder folder;
  for (unsigned seed = 0; seed < 600; ++seed) {
    test::JobBuilder builder(folder / ("job" + std::to_string(seed) + ".sqlite"));
    AbsurdJob(seed, builder);
    jobstore::Job job(builder.Finish());
    test::RecordingHost host;
    const Timeline timeline = ReadTimeline(job, host);
    ASSERT_EQ(ByScan(job, timeline.Entries()), ByQuery(job, timeline.Entries())) << seed;
  }
}

/// What the periods of so many entries cost of a job of as many epochs.
struct Cost {
  int steps = 0;  ///< of the library, in ten thousands
  std::size_t epochs = 0;
  std::int32_t lastStep = 0;
};
Cost CostOf(const std::vector<jobstore::GpsKey>& times) {
  const test::TempFolder folder;
  test::JobBuilder builder(folder / "job.sqlite");
  for (std::int32_t i = 0; i < std::ssize(times); ++i) builder.Epoch({1, i}, 0, 0);
  jobstore::Job job(builder.Finish());
  Cost cost;
  job.Library().CallDuringSteps([&cost] { ++cost.steps; });
  const auto entries = EntriesAt(times);
  Periods periods(job, entries);
  for (std::size_t k = 0; k < entries.size(); ++k) {
    for (Periods::Row row; periods.Next(k, row);) ++cost.epochs;
  }
  cost.lastStep = periods.LastStep();
  return cost;
}

TEST(Periods, ManyInOrderTakeOneScan) {
  std::vector<jobstore::GpsKey> times(4000);
  const Cost ofOneTime = CostOf(times);
  for (std::int32_t i = 0; i < std::ssize(times); ++i) times[static_cast<std::size_t>(i)] = {1, i};
  const Cost ofTheirOwn = CostOf(times);
  EXPECT_EQ(ofOneTime.epochs, times.size());
  EXPECT_EQ(ofTheirOwn.epochs, times.size());
  EXPECT_EQ(ofTheirOwn.steps, ofOneTime.steps);
}

TEST(Periods, ManyOutOfOrderEndAsOneQueryThatTakesTooManySteps) {
  std::vector<jobstore::GpsKey> times(4000);
  for (std::int32_t i = 0; i < std::ssize(times); ++i) {
    times[static_cast<std::size_t>(i)] = {1, 4000 - i};
  }
  const Cost cost = CostOf(times);
  EXPECT_EQ(cost.lastStep, SQLITE_INTERRUPT);
  EXPECT_LT(cost.steps, 4000);
}

TEST(Periods, MissingGpsTableIsNotPrepared) {
  const test::TempFolder folder;
  test::JobBuilder builder(folder / "job.sqlite");
  builder.Execute("DROP TABLE GpsDataTable");
  jobstore::Job job(builder.Finish());
  const auto entries = EntriesAt({{1, 1}});
  Periods periods(job, entries);
  EXPECT_FALSE(periods.Prepared());
  Periods::Row row;
  EXPECT_FALSE(periods.Next(0, row));
}

}  // namespace
}  // namespace kestrin::boom
