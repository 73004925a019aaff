#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <set>

#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tests/support/database.h"
#include "tests/support/manyJobs.h"
#include "tests/support/tempFolder.h"
#include "tools/sample/sampleJob.h"

namespace kestrin::sample {
namespace {

using test::AllRows;
using test::Ask;
using test::FileBytes;

class Sample : public ::testing::Test {
 protected:
  std::string Make(const std::string& profile, std::int64_t rows = 0, std::uint64_t seed = 1) {
    const std::string path = folder_ / (profile + std::to_string(++made_) + ".sqlite");
    MakeSampleJob(path, {.profile = profile, .rows = rows, .seed = seed});
    return path;
  }

  test::TempFolder folder_;
  int made_ = 0;
};

class EveryProfile : public Sample, public ::testing::WithParamInterface<SampleProfile> {
 protected:
  std::string Profile() const { return std::string(GetParam().name); }
};

INSTANTIATE_TEST_SUITE_P(Sample, EveryProfile, ::testing::ValuesIn(SampleProfiles()),
                         test::NameOfProfile);

/// Without the one that shows what consoles and receivers do wrong.
class EveryCleanProfile : public EveryProfile {};

std::vector<SampleProfile> CleanProfiles() {
  std::vector<SampleProfile> profiles(SampleProfiles().begin(), SampleProfiles().end());
  std::erase_if(profiles, [](const SampleProfile& profile) { return profile.name == "jitter"; });
  return profiles;
}

INSTANTIATE_TEST_SUITE_P(Sample, EveryCleanProfile, ::testing::ValuesIn(CleanProfiles()),
                         test::NameOfProfile);

TEST_P(EveryProfile, IsTheSameToTheByteForASeed) {
  const std::string one = Make(Profile(), 1500, 7);
  const std::string two = Make(Profile(), 1500, 7);
  EXPECT_TRUE(FileBytes(one) == FileBytes(two));
}

TEST_P(EveryProfile, DiffersBetweenSeeds) {
  EXPECT_NE(AllRows(Make(Profile(), 200, 1)), AllRows(Make(Profile(), 200, 2)));
}

TEST_P(EveryProfile, HasTheRowsAskedForThroughTheJobStore) {
  for (const std::int64_t rows : {1, 2, 37, 2000}) {
    jobstore::Job job(Make(Profile(), rows));
    ASSERT_TRUE(job.IsOpen());
    std::int32_t count = 0;
    ASSERT_TRUE(jobstore::ReadFirst<jobstore::EpochCount>(job, count));
    EXPECT_EQ(count, rows);
  }
}

TEST_P(EveryProfile, SaysTheVersionTheProgramWasMadeFor) {
  jobstore::Job job(Make(Profile(), 20));
  std::string version;
  ASSERT_TRUE(jobstore::ReadFirst<jobstore::NewestVersion>(job, version));
  EXPECT_EQ(version, "3.2.8-1");
}

TEST_P(EveryProfile, BeginsWithAStretchAndHasRowsThatTakeNoPart) {
  const std::string path = Make(Profile(), 500);
  EXPECT_EQ(Ask(path,
                "SELECT type & 16384 <> 0 FROM GpsDataTable WHERE type & 8192 "
                "ORDER BY gpsWeek, gpsMsec"),
            1);
  EXPECT_GT(Ask(path, "SELECT count(*) FROM GpsDataTable WHERE NOT type & 8192"), 0);
}

TEST_P(EveryProfile, IsARollbackJournalJobWithNothingBesideIt) {
  const std::string path = Make(Profile(), 50);
  const std::string bytes = FileBytes(path);
  EXPECT_EQ(bytes[18], 1);
  EXPECT_EQ(bytes[19], 1);
  const std::filesystem::directory_iterator entries(folder_.Path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

// The epochs' times in recorded order; a console's clock does not go back.
TEST_P(EveryCleanProfile, TimesNeverGoBack) {
  const std::string path = Make(Profile(), 3000);
  EXPECT_EQ(Ask(path,
                "SELECT count(*) FROM GpsDataTable a JOIN GpsDataTable b "
                "ON b.rowid = a.rowid + 1 WHERE (b.gpsWeek, b.gpsMsec) < "
                "(a.gpsWeek, a.gpsMsec)"),
            0);
}

TEST_P(EveryCleanProfile, MovesLikeAVehicleWithinAStretch) {
  const std::string path = Make(Profile(), 3000);
  EXPECT_LT(Ask(path,
                "SELECT max((b.e_I_B__B2 - a.e_I_B__B2) * (b.e_I_B__B2 - a.e_I_B__B2) + "
                "(b.n_I_B__B2 - a.n_I_B__B2) * (b.n_I_B__B2 - a.n_I_B__B2)) "
                "FROM GpsDataTable a JOIN GpsDataTable b ON b.rowid = a.rowid + 1 "
                "WHERE a.type & 8192 AND b.type & 8192 AND NOT b.type & 16384"),
            2.0);
}

TEST_F(Sample, ProfilesHaveNamesOfTheirOwnAndADescription) {
  std::set<std::string_view> names;
  for (const SampleProfile& profile : SampleProfiles()) {
    EXPECT_TRUE(names.insert(profile.name).second) << profile.name;
    EXPECT_FALSE(profile.description.empty());
  }
  EXPECT_GE(names.size(), 12U);
}

TEST_F(Sample, RatesHuntAroundTheirTarget) {
  const std::string path = Make("planter");
  EXPECT_GT(Ask(path, "SELECT count(*) FROM AsAppliedActRateChangeTable WHERE actualRate0 > 33.6"),
            50);
  EXPECT_GT(Ask(path,
                "SELECT count(*) FROM AsAppliedActRateChangeTable "
                "WHERE actualRate0 BETWEEN 20 AND 33.4"),
            50);
}

TEST_F(Sample, SectionsSwitchOneByOneAtTheHeadland) {
  EXPECT_GT(Ask(Make("planter"), "SELECT count(DISTINCT boomStatusBitfield) FROM GpsDataTable"),
            10);
  EXPECT_EQ(Ask(Make("combine"), "SELECT max(boomStatusBitfield) FROM GpsDataTable"), 255);
}

TEST_F(Sample, UsualJobRefillsStopsAndFollowsAPrescription) {
  const std::string path = Make("planter");
  EXPECT_GE(Ask(path, "SELECT count(*) FROM AsAppliedDesRateChangeTable WHERE desiredRate0 = 0"),
            3);
  EXPECT_GE(Ask(path, "SELECT count(DISTINCT desiredRate0) FROM AsAppliedDesRateChangeTable"), 5);
  EXPECT_GT(Ask(path, "SELECT count(*) FROM GpsDataTable WHERE speed = 0"), 400);
}

TEST_F(Sample, SprayerHasSixteenSectionsThreeProductsAndTenEpochsASecond) {
  const std::string path = Make("sprayer");
  EXPECT_EQ(
      Ask(path, "SELECT count(*) FROM ImplChangeTable WHERE width0 = 2.25 AND width15 = 2.25"), 1);
  EXPECT_EQ(Ask(path,
                "SELECT count(*) FROM AsAppliedProductChangeTable WHERE ProductName0 = '' OR "
                "ProductName1 = '' OR ProductName2 = ''"),
            0);
  EXPECT_GT(Ask(path, "SELECT max(actualRate1) FROM AsAppliedActRateChangeTable"), 1);
  EXPECT_EQ(Ask(path,
                "SELECT b.gpsMsec - a.gpsMsec FROM GpsDataTable a "
                "JOIN GpsDataTable b ON b.rowid = a.rowid + 1"),
            100);
}

TEST_F(Sample, CombineHasYieldsWithoutAnyTarget) {
  const std::string path = Make("combine");
  EXPECT_EQ(Ask(path, "SELECT count(*) FROM AsAppliedDesRateChangeTable"), 0);
  EXPECT_GT(Ask(path, "SELECT max(actualRate0) FROM AsAppliedActRateChangeTable"), 1);
  EXPECT_LT(Ask(path, "SELECT latitude FROM ReferenceLocationChangeTable"), 0);
}

TEST_F(Sample, SpreaderHasOddSectionsAndOneMeterForTwoTargets) {
  const std::string path = Make("spreader");
  EXPECT_EQ(Ask(path, "SELECT count(*) FROM ImplChangeTable WHERE width1 = 0 AND width2 = -1"), 1);
  EXPECT_GT(Ask(path, "SELECT max(desiredRate1) FROM AsAppliedDesRateChangeTable"), 0);
  EXPECT_EQ(Ask(path, "SELECT max(actualRate1) FROM AsAppliedActRateChangeTable"), 0);
}

TEST_F(Sample, RefillsBringANewLotEachTime) {
  EXPECT_GE(
      Ask(Make("refill"), "SELECT count(DISTINCT ProductName0) FROM AsAppliedProductChangeTable"),
      10);
}

TEST_F(Sample, RolloverCrossesTheEndOfTheWeek) {
  for (const std::int64_t rows : {100, 20000}) {
    const std::string path = Make("rollover", rows);
    EXPECT_EQ(Ask(path, "SELECT count(DISTINCT gpsWeek) FROM GpsDataTable WHERE type & 8192"), 2);
    EXPECT_LT(Ask(path, "SELECT max(gpsMsec) FROM GpsDataTable"), 604800000);
  }
}

TEST_F(Sample, SpiralIsOneStretchAndFieldWorkIsMany) {
  const std::string stretches = "SELECT count(*) FROM GpsDataTable WHERE type & 16384";
  EXPECT_EQ(Ask(Make("spiral"), stretches), 1);
  EXPECT_GT(Ask(Make("planter"), stretches), 10);
}

TEST_F(Sample, HeadlandOnlyNeverRunsInTheMiddle) {
  const std::string path = Make("headland-only", 1900);
  EXPECT_EQ(Ask(path,
                "WITH box AS (SELECT min(e_I_B__B2) w, max(e_I_B__B2) e, min(n_I_B__B2) s, "
                "max(n_I_B__B2) n FROM GpsDataTable) "
                "SELECT count(*) FROM GpsDataTable, box WHERE "
                "e_I_B__B2 BETWEEN w + 0.4 * (e - w) AND e - 0.4 * (e - w) AND "
                "n_I_B__B2 BETWEEN s + 0.4 * (n - s) AND n - 0.4 * (n - s)"),
            0);
}

TEST_F(Sample, ThreePointTurnsReverse) {
  if (sqlite3_compileoption_used("ENABLE_MATH_FUNCTIONS") == 0) GTEST_SKIP() << "no sines in SQL";
  // Backwards: the way driven points away from where the vehicle looks.
  const std::string reversed =
      "SELECT count(*) FROM GpsDataTable a JOIN GpsDataTable b ON b.rowid = a.rowid + 1 "
      "WHERE a.speed > 1 AND NOT b.type & 16384 AND "
      "(b.e_I_B__B2 - a.e_I_B__B2) * sin(a.yaw) + (b.n_I_B__B2 - a.n_I_B__B2) * cos(a.yaw) < -0.1";
  EXPECT_GT(Ask(Make("three-point"), reversed), 20);
  EXPECT_EQ(Ask(Make("planter"), reversed), 0);
}

TEST_F(Sample, StandstillRepeatsPositionAndHeadingExactly) {
  const std::string repeated =
      "SELECT count(*) FROM GpsDataTable a JOIN GpsDataTable b ON b.rowid = a.rowid + 1 WHERE "
      "a.e_I_B__B2 = b.e_I_B__B2 AND a.n_I_B__B2 = b.n_I_B__B2 AND a.yaw = b.yaw";
  EXPECT_GT(Ask(Make("standstill"), repeated), 100);
}

TEST_F(Sample, TinyHasFiveEpochs) {
  EXPECT_EQ(Ask(Make("tiny"), "SELECT count(*) FROM GpsDataTable WHERE type & 8192"), 5);
}

TEST_F(Sample, UnicodeNamesAreKeptAndLong) {
  const std::string path = Make("unicode", 100);
  EXPECT_EQ(Ask(path, "SELECT implName = 'Sämaschine 6 m' FROM ImplChangeTable"), 1);
  EXPECT_GT(Ask(path, "SELECT length(ProductName0) FROM AsAppliedProductChangeTable"), 10);
}

TEST_F(Sample, TwoImplementsMakeThreeChanges) {
  const std::string path = Make("two-implements");
  EXPECT_EQ(Ask(path, "SELECT count(*) FROM ImplChangeTable"), 3);
  EXPECT_EQ(Ask(path, "SELECT count(DISTINCT implName) FROM ImplChangeTable"), 2);
}

TEST_F(Sample, ZoneBorderIsCrossedByTheReference) {
  if (sqlite3_compileoption_used("ENABLE_MATH_FUNCTIONS") == 0) GTEST_SKIP() << "no sines in SQL";
  const std::string path = Make("zone-border");
  const std::string zone = "SELECT count(*) FROM ReferenceLocationChangeTable WHERE longitude ";
  EXPECT_EQ(Ask(path, zone + "< radians(-96)"), 2);
  EXPECT_EQ(Ask(path, zone + "> radians(-96)"), 1);
}

TEST_F(Sample, NoImplementHasNone) {
  EXPECT_EQ(Ask(Make("no-implement"), "SELECT count(*) FROM ImplChangeTable"), 0);
}

TEST_F(Sample, DropoutsHaveEqualKeysLostFixesAndEpochsBeforeTheChanges) {
  const std::string path = Make("dropouts");
  EXPECT_GT(Ask(path,
                "SELECT count(*) FROM GpsDataTable a JOIN GpsDataTable b "
                "ON b.rowid = a.rowid + 1 WHERE a.gpsMsec = b.gpsMsec"),
            100);
  EXPECT_GT(Ask(path, "SELECT count(*) FROM GpsDataTable WHERE NOT type & 8192"), 1000);
  EXPECT_GT(Ask(path,
                "SELECT count(*) FROM GpsDataTable WHERE type & 8192 AND "
                "gpsMsec < (SELECT min(gpsMsec) FROM ImplChangeTable)"),
            10);
}

/// Of pairs of rows as an export takes them.
const std::string kPairs =
    " FROM (SELECT *, lead(e_I_B__B2) OVER w - e_I_B__B2 AS de, "
    "lead(n_I_B__B2) OVER w - n_I_B__B2 AS dn, lead(gpsMsec) OVER w - gpsMsec AS dt, "
    "lead(yaw) OVER w AS nextYaw, lead(speed) OVER w AS nextSpeed "
    "FROM GpsDataTable WHERE type & 8192 WINDOW w AS (ORDER BY gpsWeek, gpsMsec, rowid)) ";

TEST_F(Sample, JitterStandsWithinCentimetresAndRunsBackThere) {
  const std::string standing = "WHERE speed = 0 AND nextSpeed = 0 AND de * de + dn * dn < 1";
  const std::string path = Make("jitter");
  const double rows = Ask(path, "SELECT count(*)" + kPairs + standing);
  EXPECT_GT(rows, 1000);
  EXPECT_LT(Ask(path, "SELECT max(de * de + dn * dn)" + kPairs + standing), 0.15 * 0.15);
  EXPECT_NEAR(
      Ask(path, "SELECT count(*)" + kPairs + standing + " AND de * sin(yaw) + dn * cos(yaw) < 0") /
          rows,
      0.5, 0.05);
}

TEST_F(Sample, JitterFoldsAtAFifthOfTheRows) {
  // An end of the implement, 9 m from its middle, that runs against the heading.
  const std::string ahead = "de * sin(yaw) + dn * cos(yaw)";
  const std::string back = "9 * abs(sin(nextYaw - yaw)) > " + ahead;
  const std::string path = Make("jitter");
  const double rows = Ask(path, "SELECT count(*)" + kPairs);
  EXPECT_NEAR(Ask(path, "SELECT count(*)" + kPairs + "WHERE " + back) / rows, 0.2, 0.05);
}

TEST_F(Sample, JitterJumpsAHundredMetresAndBackAndReversesAtTheEnds) {
  const std::string path = Make("jitter");
  const double jumps = Ask(path, "SELECT count(*)" + kPairs + "WHERE de * de + dn * dn > 90 * 90");
  EXPECT_GT(jumps, 20);
  EXPECT_EQ(std::remainder(jumps, 2), 0);
  EXPECT_GT(Ask(path, "SELECT count(*)" + kPairs +
                          "WHERE speed > 0.5 AND de * sin(yaw) + dn * cos(yaw) < -0.1"),
            100);
}

TEST_F(Sample, JitterFilesRowsOutOfOrderAndRepeatsKeys) {
  const std::string path = Make("jitter");
  EXPECT_GT(Ask(path,
                "SELECT count(*) FROM GpsDataTable a JOIN GpsDataTable b "
                "ON b.rowid = a.rowid + 1 WHERE b.gpsMsec < a.gpsMsec"),
            200);
  EXPECT_GT(Ask(path, "SELECT count(*)" + kPairs + "WHERE dt = 0"), 200);
}

TEST_F(Sample, AddingUpRepeatsTheImplementOnceAMinute) {
  const std::string path = Make("adding-up");
  EXPECT_GT(Ask(path, "SELECT sum(width0 * 16) FROM ImplChangeTable"), 500);
  EXPECT_EQ(Ask(path, "SELECT count(DISTINCT width0) FROM ImplChangeTable"), 1);
  EXPECT_EQ(Ask(path,
                "SELECT min(b.gpsMsec - a.gpsMsec) FROM ImplChangeTable a JOIN ImplChangeTable b "
                "ON b.rowid = a.rowid + 1 AND a.rowid > 1"),
            60000);
}

// Actual rates of the start-up never come back within their period, which ends at
// the second change: otherwise there would be no boom set.
TEST_P(EveryProfile, StartsWithRatesThatAreLeftForGood) {
  const std::string path = Make(Profile());
  const std::string secondChange =
      "(SELECT gpsMsec FROM (SELECT gpsWeek, gpsMsec FROM AsAppliedDesRateChangeTable UNION "
      "SELECT gpsWeek, gpsMsec FROM AsAppliedProductChangeTable UNION "
      "SELECT gpsWeek, gpsMsec FROM ImplChangeTable ORDER BY 1, 2 LIMIT 1 OFFSET 1))";
  const std::string firstWeek = " AND gpsWeek = (SELECT min(gpsWeek) FROM GpsDataTable)";
  EXPECT_GT(Ask(path, "SELECT count(*) FROM GpsDataTable WHERE type & 8192 AND gpsMsec < " +
                          secondChange + firstWeek),
            0);
  EXPECT_EQ(Ask(path, "SELECT count(*) FROM AsAppliedActRateChangeTable WHERE gpsMsec < " +
                          secondChange + " - 40" + firstWeek),
            1);
}

TEST_F(Sample, AnExistingFileIsLeftAlone) {
  const std::string path = folder_ / "kept.sqlite";
  std::ofstream(path) << "kept";
  EXPECT_THROW(MakeSampleJob(path, {.profile = "tiny"}), SampleError);
  EXPECT_EQ(FileBytes(path), "kept");
  MakeSampleJob(path, {.profile = "tiny", .force = true});
  EXPECT_EQ(FileBytes(path).substr(0, 15), "SQLite format 3");
}

TEST_F(Sample, FailureNamesThePathAndLeavesNothing) {
  try {
    MakeSampleJob(folder_ / "gone/job.sqlite", {.profile = "tiny"});
    FAIL() << "made in a folder that is not there";
  } catch (const SampleError& error) {
    EXPECT_THAT(error.what(), ::testing::HasSubstr(base::WithOwnSeparators("gone/job.sqlite")));
  }
  EXPECT_THROW(MakeSampleJob(folder_ / "job.sqlite", {.profile = "no such"}), SampleError);
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

}  // namespace
}  // namespace kestrin::sample
