#include <gtest/gtest.h>

#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::jobstore {
namespace {

constexpr double kHalfTurn = 3.14159265358979;

/// A job in which every column of every table holds a value of its own.
class Readers : public testing::Test {
 protected:
  Readers() {
    test::JobBuilder builder(folder_ / "job.sqlite");
    builder
        .Execute(
            "INSERT INTO GpsDataTable VALUES(101, 102, 103.5, 104.5, 105.5, 106.5, 107.5, "
            "108.5, 109.5, 8192 + 7, 111)")
        .Execute(
            "INSERT INTO ReferenceLocationChangeTable VALUES(201, 202, 3.14159265358979, "
            "-1.570796326794895, 205.5)")
        .Execute("INSERT INTO AsAppliedDesRateChangeTable VALUES(301, 302, 303.5, 304.5, 305.5)")
        .Execute("INSERT INTO AsAppliedActRateChangeTable VALUES(401, 402, 403.5, 404.5, 405.5)")
        .Execute("INSERT INTO AsAppliedProductChangeTable VALUES(501, 502, 'a', 'b', 'c')")
        .Execute("INSERT INTO VersionChangeTable VALUES(601, 602, '3.2.8-1')");
    std::string sections;
    for (int i = 0; i < 4 * kSectionSlots; ++i) sections += ", " + std::to_string(i) + ".5";
    builder.Execute("INSERT INTO ImplChangeTable VALUES(701, 702, 'boom', 703.5" + sections + ")");
    path_ = builder.Finish();
  }

  template <class Q, class... Numbers>
  typename Q::Row First(const Numbers&... numbers) {
    Job job(path_);
    typename Q::Row row{};
    EXPECT_TRUE(ReadFirst<Q>(job, row, numbers...));
    return row;
  }

  test::TempFolder folder_;
  std::string path_;
};

TEST_F(Readers, Selection) {
  EXPECT_EQ(First<VersionTableCount>(), 1);
  EXPECT_EQ(First<NewestVersion>(), "3.2.8-1");
  EXPECT_EQ(First<EpochCount>(), 1);
  EXPECT_EQ(First<NewestEpoch>(), (GpsKey{101, 102}));
}

TEST_F(Readers, ReferencesAreInDegrees) {
  const ReferenceRow row = First<References>();
  EXPECT_EQ(row.time, (GpsKey{201, 202}));
  EXPECT_EQ(row.latitude, kHalfTurn * 57.2957795130823);
  EXPECT_EQ(row.longitude, -kHalfTurn / 2 * 57.2957795130823);
}

TEST_F(Readers, ReferencesWithAltitudeAsStored) {
  const ReferenceWithAltitudeRow row = First<ReferencesWithAltitude>();
  EXPECT_EQ(row.time, (GpsKey{201, 202}));
  EXPECT_EQ(row.latitude, kHalfTurn * 57.2957795130823);
  EXPECT_EQ(row.longitude, -kHalfTurn / 2 * 57.2957795130823);
  EXPECT_EQ(row.altitude, 205.5);
}

TEST_F(Readers, ImplementsByPosition) {
  const ImplementRow row = First<Implements>();
  EXPECT_EQ(row.time, (GpsKey{701, 702}));
  EXPECT_EQ(row.name, "boom");
  EXPECT_EQ(row.number, 703.5);
  for (std::size_t slot = 0; slot < kSectionSlots; ++slot) {
    const double first = 4.0 * static_cast<double>(slot) + 0.5;
    EXPECT_EQ(row.sections[slot].width, first);
    EXPECT_EQ(row.sections[slot].xOffset, first + 1);
    EXPECT_EQ(row.sections[slot].yOffset, first + 2);
    EXPECT_EQ(row.sections[slot].zOffset, first + 3);
  }
}

TEST_F(Readers, RatesAndProducts) {
  EXPECT_EQ(First<DesiredRates>().time, (GpsKey{301, 302}));
  EXPECT_EQ(First<DesiredRates>().rates, (std::array{303.5, 304.5, 305.5}));
  EXPECT_EQ(First<ActualRates>().time, (GpsKey{401, 402}));
  EXPECT_EQ(First<ActualRates>().rates, (std::array{403.5, 404.5, 405.5}));
  EXPECT_EQ(First<Products>().time, (GpsKey{501, 502}));
  EXPECT_EQ(First<Products>().names, (std::array<std::string, 3>{"a", "b", "c"}));
}

TEST_F(Readers, Maxima) {
  EXPECT_EQ(First<BoomStatusMaximum>(), 111);
  EXPECT_EQ(First<SectionWidthMaximum>(0), 0.5);
  EXPECT_EQ(First<SectionWidthMaximum>(15), 60.5);
  EXPECT_EQ(First<DesiredRateMaxima>(), (std::array{303.5, 304.5, 305.5}));
  EXPECT_EQ(First<ActualRateMaxima>(), (std::array{403.5, 404.5, 405.5}));
}

constexpr double ValueOf(East) { return 103.5; }
constexpr double ValueOf(North) { return 104.5; }
constexpr double ValueOf(Down) { return 105.5; }
constexpr double ValueOf(Yaw) { return 106.5; }
constexpr double ValueOf(Pitch) { return 107.5; }
constexpr double ValueOf(Roll) { return 108.5; }
constexpr double ValueOf(Speed) { return 109.5; }
constexpr std::int32_t ValueOf(EpochType) { return 8192 + 7; }
constexpr std::int32_t ValueOf(BoomStatus) { return 111; }

template <class Q>
struct Expectation;
template <class... Columns>
struct Expectation<Epochs<Columns...>> {
  static void Of(const typename Epochs<Columns...>::Row& row) {
    EXPECT_EQ(row.time, (GpsKey{101, 102}));
    (..., [&] { EXPECT_EQ(row.*Columns::kField, ValueOf(Columns{})); }());
  }
};

template <class Q>
class EpochReaders : public Readers {};
using AllEpochs = testing::Types<WireEpochs, PolyEpochs, PointEpochs, BoomEpochs, PreviewBoomEpochs,
                                 PreviewWireEpochs, PreviewPolyEpochs, PreviewPointEpochs>;
TYPED_TEST_SUITE(EpochReaders, AllEpochs);

TYPED_TEST(EpochReaders, ReadEachFieldFromItsOwnColumn) {
  Expectation<TypeParam>::Of(this->template First<TypeParam>());
}

TEST(Columns, TextsLeaveWhatStoodWhereTheColumnIsEmpty) {
  const test::TempFolder folder;
  Job job(test::JobBuilder(folder / "job.sqlite")
              .Execute("INSERT INTO AsAppliedProductChangeTable VALUES(1, 1, NULL, '', 'x')")
              .Finish());
  ProductsRow row{.time = {}, .names = {"one", "two", "three"}};
  ASSERT_TRUE(ReadFirst<Products>(job, row));
  EXPECT_EQ(row.names, (std::array<std::string, 3>{"one", "two", "x"}));
  ProductsRow fresh;
  ASSERT_TRUE(ReadFirst<Products>(job, fresh));
  EXPECT_EQ(fresh.names, (std::array<std::string, 3>{"", "", "x"}));
}

TEST(Columns, ColumnsThatAnImplementTableLacksAreZero) {
  const test::TempFolder folder;
  Job job(test::JobBuilder(folder / "job.sqlite")
              .Execute("DROP TABLE ImplChangeTable")
              .Execute("CREATE TABLE ImplChangeTable(gpsWeek, gpsMsec, name, number, width0)")
              .Execute("INSERT INTO ImplChangeTable VALUES(1, 2, 'short', 3, 4.5)")
              .Finish());
  ImplementRow row;
  ASSERT_TRUE(ReadFirst<Implements>(job, row));
  EXPECT_EQ(row.sections[0].width, 4.5);
  EXPECT_EQ(row.sections[0].xOffset, 0);
  EXPECT_EQ(row.sections[15].zOffset, 0);
}

}  // namespace
}  // namespace kestrin::jobstore
